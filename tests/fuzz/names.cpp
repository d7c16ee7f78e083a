#include "fuzz/Input.h"
#include "scanner/FindingRules.h"

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tidlo;
    const QByteArray name = bytesOf(data, size);
    require(normalizedProjectName(name) == normalizedProjectName(name), "a name is always taken for the same");
    require(normalizedProjectName(name).size() <= name.size(), "a name grows by nothing");
    return 0;
}
