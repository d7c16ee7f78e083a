#include "cli/PathArgument.h"
#include "cli/RestoreSelection.h"
#include "fuzz/Input.h"

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tidlo;
    const QByteArray argument = bytesOf(data, size);
    require(pathOfArgument(argumentText(argument)) == argument, "no byte of a path is lost");
    momentOf(argumentText(argument), QDateTime::fromSecsSinceEpoch(1'700'000'000));
    return 0;
}
