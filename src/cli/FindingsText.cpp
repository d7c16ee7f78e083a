#include "cli/FindingsText.h"

#include "cli/TextTable.h"
#include "model/TidloPercent.h"
#include "platform/ByteCountFormatter.h"
#include "platform/VisibleText.h"

#include <algorithm>

namespace tidlo {

namespace {

Ink inkOf(CleanupRisk risk)
{
    switch (risk) {
    case CleanupRisk::safe:
        return Ink::green;
    case CleanupRisk::rebuildable:
        return Ink::blue;
    case CleanupRisk::review:
        return Ink::yellow;
    case CleanupRisk::never:
        return Ink::red;
    }
    return Ink::plain;
}

TextTable tableOf(const QList<CleanupCandidate> &candidates)
{
    using enum TableColumn::Alignment;
    TextTable table{.columns = {{QStringLiteral("Size"), right},
                                {QStringLiteral("Risk")},
                                {QStringLiteral("Category")},
                                {QStringLiteral("Finding")},
                                {QStringLiteral("Paths"), right},
                                {QStringLiteral("Selected")}},
                    .rows = {}};
    for (const CleanupCandidate &candidate : candidates) {
        table.rows.append({{byteCountText(candidate.bytes), Ink::strong},
                           {rawValue(candidate.risk), inkOf(candidate.risk)},
                           {rawValue(candidate.category)},
                           {visibleText(candidate.title), Ink::strong},
                           {QString::number(candidate.paths.size())},
                           {candidate.selected ? QStringLiteral("yes") : QStringLiteral("no"), Ink::faint}});
    }
    return table;
}

QString pathLines(const CleanupCandidate &candidate, const QString &indent, bool colour)
{
    QString lines;
    for (const FilePath &path : candidate.paths)
        lines += indent + inked(Ink::faint, visibleText(path), colour) + u'\n';
    return lines;
}

/// \a pieces beside each other up to \a width, then on further lines.
QStringList filled(const QList<TableCell> &pieces, const QString &separator, qsizetype width, bool colour)
{
    QStringList lines;
    qsizetype used = 0;
    for (const TableCell &piece : pieces) {
        const qsizetype needed = separator.size() + piece.text.size();
        const QString text = inked(piece.ink, piece.text, colour);
        if (!lines.isEmpty() && used + needed <= width) {
            lines.last() += inked(Ink::faint, separator, colour) + text;
            used += needed;
        } else {
            lines.append(text);
            used = piece.text.size();
        }
    }
    return lines;
}

/// Title, risk, category, paths and selection of one finding, each line no longer than \a width.
QStringList stackedLines(const CleanupCandidate &candidate, qsizetype width, bool colour)
{
    QList<TableCell> words;
    for (const QString &word : visibleText(candidate.title).split(u' '))
        words.append({word, Ink::strong});
    const QString selected = candidate.selected ? QStringLiteral("selected") : QStringLiteral("not selected");
    const QList<TableCell> facts{{rawValue(candidate.risk), inkOf(candidate.risk)},
                                 {rawValue(candidate.category)},
                                 {countText(candidate.paths.size(), QStringLiteral("path"))},
                                 {selected, Ink::faint}};
    return filled(words, QStringLiteral(" "), width, colour) + filled(facts, QStringLiteral(" · "), width, colour);
}

QString stackedText(const QList<CleanupCandidate> &candidates, ListedPaths paths, const Terminal &terminal)
{
    const int sizeWidth = tableOf(candidates).widthOfColumn(0);
    const QString indent(sizeWidth + 2, u' ');
    QString text;
    for (const CleanupCandidate &candidate : candidates) {
        const QString size = byteCountText(candidate.bytes).rightJustified(sizeWidth);
        QString lead = inked(Ink::strong, size, terminal.colour) + QStringLiteral("  ");
        for (const QString &line : stackedLines(candidate, terminal.columns - indent.size(), terminal.colour))
            text += std::exchange(lead, indent) + line + u'\n';
        if (paths == ListedPaths::all)
            text += pathLines(candidate, indent, terminal.colour);
    }
    return text;
}

QString tableText(const TextTable &table, const QList<CleanupCandidate> &candidates, ListedPaths paths, bool colour)
{
    const QString indent(table.widthOfColumn(0) + 2, u' ');
    const QStringList lines = table.lines(colour);
    QString text = lines.first() + u'\n';
    for (qsizetype i = 0; i < candidates.size(); ++i) {
        text += lines[i + 1] + u'\n';
        if (paths == ListedPaths::all)
            text += pathLines(candidates[i], indent, colour);
    }
    return text;
}

} // namespace

QString findingsText(const QList<CleanupCandidate> &candidates, ListedPaths paths, const Terminal &terminal)
{
    const TextTable table = tableOf(candidates);
    const bool fits = terminal.columns == 0 || table.width() <= terminal.columns;
    return fits ? tableText(table, candidates, paths, terminal.colour) : stackedText(candidates, paths, terminal);
}

QString totalsText(const ScanTotals &totals, const Forecast &forecast, const Terminal &terminal)
{
    const auto line = [&](const QString &label, const QString &figure) {
        return inked(Ink::faint, label.leftJustified(13), terminal.colour) + figure + u'\n';
    };
    const QString frees = forecastText(forecast);
    return line(QStringLiteral("Found"), byteCountText(totals.totalBytes)) +
           line(QStringLiteral("Recoverable"), byteCountText(totals.recoverableBytes)) +
           (frees.isEmpty() ? QString() : line({}, frees)) +
           line(QStringLiteral("Disk used"), tidloPercent(totals.diskUsedPercent)) +
           line(QStringLiteral("Free"),
                QStringLiteral("%1 of %2").arg(byteCountText(totals.freeBytes), byteCountText(totals.volumeBytes)));
}

QString unreadText(const UnreadFolders &unread)
{
    if (unread.count == 0)
        return {};
    QString text = countText(unread.count, QStringLiteral("folder")) + QStringLiteral(" could not be read:\n");
    for (const UnreadFolder &folder : unread.first)
        text += QStringLiteral("  %1: %2\n").arg(visibleText(folder.path), folder.reason);
    if (unread.count > unread.first.size())
        text += QStringLiteral("  and %1 more\n").arg(unread.count - unread.first.size());
    return text;
}

QString countText(qint64 count, const QString &thing)
{
    return QStringLiteral("%1 %2%3").arg(QString::number(count), thing, count == 1 ? QString() : QStringLiteral("s"));
}

} // namespace tidlo
