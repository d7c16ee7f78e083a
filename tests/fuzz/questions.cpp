#include "fuzz/Input.h"
#include "proxy/Dialect.h"
#include "proxy/OfflineExplanation.h"
#include "proxy/RequestReader.h"

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tidlo::proxy;
    const QByteArray body = tidlo::bytesOf(data, size);
    const auto prompt = readPrompt(body.toStdString());
    if (const QString *text = std::get_if<QString>(&prompt))
        tidlo::require(!offlineExplanation(*text).isEmpty(), "every question is explained");
    answerIn(Dialect::chat, body);
    answerIn(Dialect::gemini, body);
    return 0;
}
