#include "fuzz/Input.h"
#include "platform/VisibleText.h"

#include <QList>

#include <algorithm>

namespace tidlo {

static bool isHarmless(const QString &text, bool hasLines)
{
    return std::ranges::all_of(text.toUcs4(), [&](char32_t character) {
        const QChar::Category category = QChar::category(character);
        return (hasLines && (character == '\n' || character == '\t')) ||
               (category != QChar::Other_Control && category != QChar::Other_Format &&
                category != QChar::Other_Surrogate && category != QChar::Separator_Line &&
                category != QChar::Separator_Paragraph);
    });
}

} // namespace tidlo

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tidlo;
    const QByteArray bytes = bytesOf(data, size);
    require(isHarmless(visibleText(FilePath(bytes)), false), "a path that is shown acts on nothing");
    require(isHarmless(visibleText(QString::fromUtf8(bytes)), true), "a text that is shown acts on nothing");
    return 0;
}
