#include "ui/design/LineSpacing.h"

#include <QTextCursor>
#include <QTextDocument>

namespace tidlo {

void LineSpacing::setDocument(QQuickTextDocument *document)
{
    target = document;
    if (target)
        connect(target->textDocument(), &QTextDocument::contentsChanged, this, &LineSpacing::apply);
    apply();
    Q_EMIT changed();
}

void LineSpacing::setSpacing(double spacing)
{
    room = spacing;
    apply();
    Q_EMIT changed();
}

void LineSpacing::apply()
{
    if (!target)
        return;
    QTextBlockFormat format;
    format.setLineHeight(room, QTextBlockFormat::LineDistanceHeight);
    QTextCursor everything(target->textDocument());
    everything.select(QTextCursor::Document);
    if (everything.blockFormat().lineHeight() != room ||
        everything.blockFormat().lineHeightType() != QTextBlockFormat::LineDistanceHeight)
        everything.mergeBlockFormat(format);
}

} // namespace tidlo
