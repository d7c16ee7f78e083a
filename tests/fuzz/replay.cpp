// Passes the inputs of the corpus to a target, one file for each: replay FILE...

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
        std::fprintf(stderr, "%s\n", arguments[i]); // The last name printed is that of the failing input.
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(input.constData()), static_cast<size_t>(input.size()));
    }
}
