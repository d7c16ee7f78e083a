#include "support/PrintQt.h"

#include <QFile>
#include <QRegularExpression>

#include <gmock/gmock.h>

namespace tidlo {

namespace {

/// Constructs that the bash and the tools of macOS lack: its bash is 3.2, and its tools take no long options.
struct Construct
{
    const char *example;
    const char *pattern;
};

constexpr Construct constructs[] = {
    {"mapfile -t lines", R"(\b(mapfile|readarray|coproc)\b)"},
    {"declare -A table", R"(\b(declare|local|typeset) -[a-zA-Z]*[Agln])"},
    {"exec {end}< pipe", R"(\{\w+\}[<>])"},
    {"echo ${name,,}", R"(\$\{\w+(\[[^]]*\])?(,|\^|@[A-Za-z]))"},
    {"echo ${name:0:-1}", R"(\$\{\w+(\[[^]]*\])?:[^}]*: *-)"},
    {"echo ${lines[-1]}", R"(\$\{\w+\[-)"},
    {"wait -n", R"(\bwait -[fnp])"},
    {"make &>> log", R"(&>>|\|&)"},
    {"one) ;;&", R"(;;?&)"},
    {"[[ -v name ]]", R"(\[\[ (! )?-[vR] )"},
    {"echo {1..9..2}", R"(\{\w+\.\.\w+\.\.)"},
    {"printf '%(%F)T'", R"(printf (-v \w+ )?["']?%\()"},
    {"read -t 0.5 line", R"(\bread .*-t ?\d*\.)"},
    {"read -N 4 line", R"(\bread .*-[a-z]*[iN] )"},
    {"shopt -s globstar", R"(\b(globstar|lastpipe|inherit_errexit)\b)"},
    {"echo $BASHPID", R"(\$\{?(BASHPID|EPOCH\w+|SRANDOM)\b)"},
    {"nproc", R"(\b(nproc|tac|timeout|numfmt|shuf)\b)"},
    {"mkdir --parents a",
     R"(\b(cat|cp|date|head|ln|ls|mkdir|mktemp|mv|realpath|rm|sed|sort|stat|tail|touch) [^|;]*--[a-z])"},
    {"sed -i s/a/b/ file", R"(\bsed -[a-z]*[ir])"},
    {"stat -c %s file", R"(\bstat -c|\bdate -d|\bgrep -[a-zA-Z]*P)"},
};

QRegularExpression patternOf(const Construct &construct)
{
    return QRegularExpression(QString::fromLatin1(construct.pattern));
}

/// The scripts that run on a Mac; the others run only on Debian.
constexpr const char *scripts[] = {"bootstrap", "build", "contact_sheet", "package_macos",
                                   "run",       "steps", "screenshots",   "test"};

QString readScript(const char *name)
{
    QFile file(QStringLiteral(TIDLO_SCRIPTS "/%1").arg(QLatin1StringView(name)));
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    return QString::fromUtf8(file.readAll())
        .remove(QRegularExpression(QStringLiteral("(^| )# .*$"), QRegularExpression::MultilineOption));
}

} // namespace

TEST(PortableScripts, UseNothingThatTheBashAndTheToolsOfMacOSLack)
{
    for (const char *name : scripts) {
        const QStringList lines = readScript(name).split(QLatin1Char('\n'));
        for (const Construct &construct : constructs) {
            const QStringList found = lines.filter(patternOf(construct));
            EXPECT_TRUE(found.isEmpty()) << name << ": " << found.value(0).toStdString()
                                         << "\nis like: " << construct.example;
        }
    }
}

TEST(PortableScripts, AreSearchedForEachOfThese)
{
    for (const Construct &construct : constructs) {
        const QString example = QString::fromLatin1(construct.example);
        EXPECT_TRUE(patternOf(construct).match(example).hasMatch()) << construct.example;
    }
}

/// In an old bash, an empty array is unset, and using it is an error.
TEST(PortableScripts, ExpandNoArrayThatMayBeEmpty)
{
    static const QRegularExpression madeEmpty(QStringLiteral(R"((\w+)=\(\))"));
    for (const char *name : scripts) {
        const QString script = readScript(name);
        for (const QRegularExpressionMatch &match : madeEmpty.globalMatch(script)) {
            const QString array = match.captured(1);
            const bool isCounted = script.contains(QStringLiteral("${#%1[@]}").arg(array));
            EXPECT_TRUE(isCounted || !script.contains(QStringLiteral("${%1[@]}").arg(array)))
                << name << ": " << array.toStdString();
        }
    }
}

} // namespace tidlo
