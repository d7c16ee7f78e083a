// Gives a target the inputs that are kept, each of which is a file: replay FILE...

#include "fuzz/Input.h"

#include <QFile>

int main(int count, char **arguments)
{
    for (int i = 1; i < count; ++i) {
        QFile file(QFile::decodeName(arguments[i]));
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "replay: cannot read %s\n", arguments[i]);
            return EXIT_FAILURE;
        }
        const QByteArray input = file.readAll();
        std::fprintf(stderr, "%s\n", arguments[i]); // The last that is named is the one that failed.
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(input.constData()), static_cast<size_t>(input.size()));
    }
}
