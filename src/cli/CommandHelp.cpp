#include "cli/CommandHelp.h"

#include "cli/Output.h"

#include <algorithm>
#include <utility>

#include <unistd.h>

namespace tidlo {

namespace {

/// "-h, --help" or "--risk <risk>".
QString spelling(const CommandOption &option)
{
    QStringList spellings;
    for (const QString &name : optionNames(option))
        spellings.append((name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name);
    if (*option.value != '\0')
        spellings.last() += QStringLiteral(" <%1>").arg(QLatin1StringView(option.value));
    return spellings.join(QStringLiteral(", "));
}

struct HelpRow
{
    QString term;
    QString meaning;
};

QString helpTable(const char *heading, const QList<HelpRow> &rows)
{
    qsizetype width = 0;
    for (const HelpRow &row : rows)
        width = std::max(width, row.term.size());
    QString table = QStringLiteral("\n%1:\n").arg(QLatin1StringView(heading));
    for (const HelpRow &row : rows)
        table += QStringLiteral("  ") + row.term.leftJustified(width + 2) + row.meaning + u'\n';
    return table;
}

} // namespace

QStringList optionNames(const CommandOption &option)
{
    QStringList names{QString::fromLatin1(option.letter), QString::fromLatin1(option.name)};
    names.removeAll(QString());
    return names;
}

QString usageLine(const Command &command)
{
    constexpr qsizetype width = 80;
    const QString indent(6, u' '); // Beneath the program's name.
    QString usage;
    QString line = QStringLiteral("Usage: tidlo-cli ") + QLatin1StringView(command.name);
    QStringList words;
    for (const CommandOption &option : command.options)
        words.append(QStringLiteral(" [%1]").arg(spelling(option)));
    if (*command.arguments != '\0')
        words.append(QStringLiteral(" [%1]").arg(QLatin1StringView(command.arguments)));
    for (const QString &word : words) {
        if (line.size() + word.size() > width)
            usage += std::exchange(line, indent) + u'\n';
        line += word;
    }
    return usage + line + u'\n';
}

ExitStatus reportMisuse(const Command &command, const QString &complaint)
{
    complain(complaint);
    writeAll(STDERR_FILENO, usageLine(command).toUtf8());
    return ExitStatus::misused;
}

QString helpText(const Command &command, const QList<Command> &commands)
{
    QList<HelpRow> commandRows;
    for (const Command &other : commands)
        commandRows.append({QString::fromLatin1(other.name), QString::fromLatin1(other.summary)});
    QList<HelpRow> optionRows;
    for (const CommandOption &option : command.options + commonOptions())
        optionRows.append({spelling(option), QString::fromLatin1(option.meaning)});
    return usageLine(command) + u'\n' + QLatin1StringView(command.description) +
           (commands.isEmpty() ? QString() : helpTable("Commands", commandRows)) + helpTable("Options", optionRows);
}

} // namespace tidlo
