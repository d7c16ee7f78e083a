#pragma once

#include "cli/Terminal.h"

#include <QList>
#include <QStringList>

namespace tidlo {

struct TableCell
{
    QString text;
    Ink ink = Ink::plain;
};

struct TableColumn
{
    QString heading;
    enum class Alignment { left, right } alignment = Alignment::left;
};

/// Text in aligned columns, each as wide as its widest cell, two spaces apart.
struct TextTable
{
    QList<TableColumn> columns;
    QList<QList<TableCell>> rows; ///< Each has a cell for every column.

    int widthOfColumn(qsizetype column) const;
    int width() const;

    /// The headings and then a line for each row, without line feeds.
    QStringList lines(bool colour) const;
};

} // namespace tidlo
