#include "ui/screens/Disclosure.h"

#include "model/FindingKind.h"
#include "platform/VisibleText.h"
#include "ui/screens/Excerpt.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QStringList>

namespace tidlo {

namespace {

// A usual request has about 8,000 characters. Paths can make it any length, and showing a million takes the window
// about 15 seconds.
constexpr qsizetype requestShown = 20'000;

/// One finding, as a scan may make it.
QList<CleanupCandidate> exampleFindings()
{
    const FindingKindRow &kind = rowOf(FindingKind::projectFolders);
    CleanupCandidate finding;
    finding.id = QUuid(QLatin1StringView("{01234567-89ab-4def-8123-456789abcdef}"));
    finding.title = kind.title;
    finding.detail = kind.detail;
    finding.category = kind.category;
    finding.risk = kind.risk;
    finding.bytes = 339'700'000;
    finding.paths = {"/home/you/Sites/shop/node_modules", "/home/you/Sites/blog/.next"};
    return {finding};
}

ExplainRequest exampleRequest()
{
    ExplainEndpoint endpoint;
    endpoint.identity = [] { return QStringLiteral("FEDCBA98-7654-4321-8FED-CBA987654321"); };
    return explainRequest(exampleFindings(), endpoint);
}

/// Escapes that the body already contains keep their backslash.
QString shown(const QString &text)
{
    QStringList parts = text.split(u'\\');
    for (QString &part : parts)
        part = visibleText(part);
    return parts.join(u'\\');
}

} // namespace

Disclosure::Disclosure(AppViewModel &shownApp, QObject *parent)
    : QObject(parent)
    , app(shownApp)
{
    connect(&app, &AppViewModel::sentChanged, this, &Disclosure::changed);
    connect(&app, &AppViewModel::explanationsChanged, this, &Disclosure::changed);
}

QString Disclosure::title() const
{
    return app.sent() ? QStringLiteral("What was sent") : QStringLiteral("What is sent");
}

QString Disclosure::sentence() const
{
    if (const std::optional<ExplainRequest> sent = app.sent())
        return QStringLiteral("To explain the last scan, %1 was asked with this, and nothing else:").arg(sent->host);
    const QString host = ExplainEndpoint::liveHost();
    if (host.isEmpty())
        return QStringLiteral("Nobody is asked for explanations, so nothing is sent.");
    return (app.areExplanationsOn() ? QStringLiteral("Each scan asks %1.")
                                    : QStringLiteral("Explanations are off, so nobody is asked. If they were on, each "
                                                     "scan would ask %1."))
               .arg(host) +
           QStringLiteral(
               " What is sent are the eight largest findings: title, category, risk, size, up to eight paths "
               "and the text beneath the title; and an identifier of this machine. No file is opened or "
               "sent. An example:");
}

QString Disclosure::wholeRequest() const
{
    const std::optional<ExplainRequest> sent = app.sent();
    if (!sent && ExplainEndpoint::liveHost().isEmpty())
        return {};
    return QString::fromUtf8(textOf(sent ? *sent : exampleRequest()));
}

QString Disclosure::request() const
{
    return shown(excerptOf(wholeRequest(), requestShown).text);
}

QString Disclosure::rest() const
{
    return restText(excerptOf(wholeRequest(), requestShown).more, QStringLiteral("“Copy” takes the whole text."));
}

void Disclosure::copy() const
{
    QGuiApplication::clipboard()->setText(wholeRequest());
}

} // namespace tidlo
