#include "ai/GeminiRecords.h"
#include "fuzz/Input.h"

namespace tidlo {

template <typename Record>
static void check(const QByteArray &json)
{
    const Decoded<Record> decoded = decode<Record>(json);
    require(decoded.record.has_value() == decoded.error.isEmpty(), "there is a record or a reason");
    require(!decoded.record || decode<Record>(encode(*decoded.record)).record == decoded.record,
            "a record is read as it was written");
}

} // namespace tidlo

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tidlo;
    const QByteArray json = bytesOf(data, size);
    check<GeminiGenerateRequest>(json);
    check<GeminiGenerateResponse>(json);
    check<ProxyErrorResponse>(json);
    return 0;
}
