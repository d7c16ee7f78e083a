#include "cli/TextTable.h"

#include <algorithm>

namespace tidlo {

namespace {

constexpr int gap = 2;

} // namespace

int TextTable::widthOfColumn(qsizetype column) const
{
    qsizetype widest = columns[column].heading.size();
    for (const QList<TableCell> &row : rows)
        widest = std::max(widest, row[column].text.size());
    return static_cast<int>(widest);
}

int TextTable::width() const
{
    int sum = 0;
    for (qsizetype column = 0; column < columns.size(); ++column)
        sum += widthOfColumn(column) + (column == 0 ? 0 : gap);
    return sum;
}

QStringList TextTable::lines(bool colour) const
{
    QStringList lines(rows.size() + 1);
    for (qsizetype column = 0; column < columns.size(); ++column) {
        const bool isLast = column == columns.size() - 1;
        const bool isRight = columns[column].alignment == TableColumn::Alignment::right;
        const int width = widthOfColumn(column);
        const auto place = [&](QString &line, const TableCell &cell) {
            const QString padding(width - cell.text.size(), u' ');
            const QString text = inked(cell.ink, cell.text, colour);
            line += isRight ? padding + text : text + (isLast ? QString() : padding);
            line += QString(isLast ? 0 : gap, u' ');
        };
        place(lines[0], {columns[column].heading, Ink::faint});
        for (qsizetype row = 0; row < rows.size(); ++row)
            place(lines[row + 1], rows[row][column]);
    }
    return lines;
}

} // namespace tidlo
