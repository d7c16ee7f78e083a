#include "proxy/Settings.h"

#include <QCommandLineParser>
#include <QDir>
#include <QHostAddress>
#include <QRegularExpression>
#include <QUrl>

namespace {

/// Thrown inside this file alone.
struct Mistake
{
    QString text;
};

constexpr const char *help = R"(Usage: tidlo-proxy [options]

Explains what Tidlo found: POST /explain. With the key of a Gemini API it relays
the question there, without one it answers by itself. GET /healthz tells whether
it runs.

Options:
  --address <address>   Listen there instead of on 127.0.0.1.
  --port <number>       Listen there instead of on 8443; 0 takes a free one.
  --certificate <file>  The server's certificate with those that issued it, PEM.
  --key <file>          Its private key, PEM. Without both, a certificate for
                        localhost is made in the state folder.
  --plain-http          Speak HTTP without TLS, on a loopback address alone:
                        for a server in front of it on the same machine.
  --per-minute <count>  How often a device may ask in a minute, instead of 10
                        times; 0 for as often as it likes.
  --help                Show this.
  --version             Show the version.

Environment:
  GEMINI_API_KEY   The key of the API. Without one, nothing is sent anywhere.
  GEMINI_MODEL     The model instead of gemini-1.5-flash.
  GEMINI_BASE_URL  Where the API is, instead of at
                   https://generativelanguage.googleapis.com.
  STATE_DIRECTORY  The state folder, instead of tidlo-proxy in XDG_STATE_HOME or
                   in ~/.local/state.
)";

void addOptions(QCommandLineParser &parser)
{
    parser.addOptions({{QStringLiteral("address"), {}, QStringLiteral("address")},
                       {QStringLiteral("port"), {}, QStringLiteral("number")},
                       {QStringLiteral("certificate"), {}, QStringLiteral("file")},
                       {QStringLiteral("key"), {}, QStringLiteral("file")},
                       {QStringLiteral("plain-http"), {}},
                       {QStringLiteral("per-minute"), {}, QStringLiteral("count")},
                       {QStringLiteral("help"), {}},
                       {QStringLiteral("version"), {}}});
}

int number(const QCommandLineParser &parser, const char *option, int fallback, int most)
{
    const QString name = QString::fromLatin1(option);
    if (!parser.isSet(name))
        return fallback;
    bool isNumber = false;
    const int value = parser.value(name).toInt(&isNumber);
    if (!isNumber || value < 0 || value > most)
        throw Mistake{QStringLiteral("--%1 must be a number from 0 to %2.").arg(name).arg(most)};
    return value;
}

QString address(const QCommandLineParser &parser, const QString &fallback, bool isPlain)
{
    const QString name = QStringLiteral("address");
    const QString text = parser.isSet(name) ? parser.value(name) : fallback;
    const QHostAddress parsed(text);
    if (parsed.isNull())
        throw Mistake{QStringLiteral("--address must be an IP address.")};
    if (isPlain && !parsed.isLoopback())
        throw Mistake{QStringLiteral("--plain-http is for loopback addresses alone: others could read what is sent.")};
    return text;
}

std::optional<CertificateFiles> certificate(const QCommandLineParser &parser, bool isPlain)
{
    const CertificateFiles files{.certificate = parser.value(QStringLiteral("certificate")),
                                 .key = parser.value(QStringLiteral("key"))};
    if (files.certificate.isEmpty() != files.key.isEmpty())
        throw Mistake{QStringLiteral("--certificate and --key are given together.")};
    if (files.key.isEmpty())
        return std::nullopt;
    if (isPlain)
        throw Mistake{QStringLiteral("--certificate is of no use with --plain-http: nothing would be encrypted.")};
    return files;
}

bool isSafeUrl(const QUrl &url)
{
    const bool isLoopback = url.host() == QStringLiteral("localhost") || QHostAddress(url.host()).isLoopback();
    const bool isPrivate =
        url.scheme() == QStringLiteral("https") || (url.scheme() == QStringLiteral("http") && isLoopback);
    return url.isValid() && isPrivate && !url.host().isEmpty() && !url.hasQuery() && !url.hasFragment() &&
           url.userInfo().isEmpty();
}

std::optional<Upstream> upstream(const QProcessEnvironment &environment)
{
    static const QRegularExpression keyForm(QStringLiteral("\\A[\\x21-\\x7e]+\\z"));
    static const QRegularExpression modelForm(QStringLiteral("\\A[A-Za-z0-9._-]+\\z"));
    const QString key = environment.value(QStringLiteral("GEMINI_API_KEY")).trimmed();
    if (key.isEmpty())
        return std::nullopt;
    Upstream upstream{.key = key};
    if (const QString model = environment.value(QStringLiteral("GEMINI_MODEL")); !model.isEmpty())
        upstream.model = model;
    if (const QString url = environment.value(QStringLiteral("GEMINI_BASE_URL")); !url.isEmpty())
        upstream.baseUrl = url;
    if (!keyForm.match(key).hasMatch())
        throw Mistake{QStringLiteral("GEMINI_API_KEY holds characters that no key has.")};
    if (!modelForm.match(upstream.model).hasMatch())
        throw Mistake{QStringLiteral("GEMINI_MODEL must be the name of a model.")};
    if (!isSafeUrl(QUrl(upstream.baseUrl, QUrl::StrictMode)))
        throw Mistake{QStringLiteral("GEMINI_BASE_URL must begin with https:// and name a server.")};
    return upstream;
}

QString stateFolder(const QProcessEnvironment &environment)
{
    const QString given = environment.value(QStringLiteral("STATE_DIRECTORY")).section(u':', 0, 0);
    if (QDir::isAbsolutePath(given))
        return given;
    const QString states = environment.value(QStringLiteral("XDG_STATE_HOME"));
    const QString home = environment.value(QStringLiteral("HOME"), QDir::homePath());
    return (QDir::isAbsolutePath(states) ? states : home + QStringLiteral("/.local/state")) +
           QStringLiteral("/tidlo-proxy");
}

Settings settingsOf(const QCommandLineParser &parser, const QProcessEnvironment &environment)
{
    constexpr int mostPorts = 65'535;
    constexpr int mostPerMinute = 1'000'000;
    const Settings defaults;
    const bool isPlain = parser.isSet(QStringLiteral("plain-http"));
    return {.address = address(parser, defaults.address, isPlain),
            .port = number(parser, "port", defaults.port, mostPorts),
            .isPlain = isPlain,
            .certificate = certificate(parser, isPlain),
            .stateFolder = stateFolder(environment),
            .perMinute = number(parser, "per-minute", defaults.perMinute, mostPerMinute),
            .upstream = upstream(environment)};
}

} // namespace

std::variant<Settings, Ending> settingsFrom(const QStringList &arguments, const QProcessEnvironment &environment)
{
    constexpr int misused = 2;
    QCommandLineParser parser;
    addOptions(parser);
    try {
        if (!parser.parse(QStringList(QStringLiteral("tidlo-proxy")) + arguments))
            throw Mistake{parser.errorText()};
        if (parser.isSet(QStringLiteral("help")))
            return Ending{.status = 0, .text = QString::fromLatin1(help)};
        if (parser.isSet(QStringLiteral("version")))
            return Ending{.status = 0, .text = QStringLiteral("tidlo-proxy " TIDLO_VERSION "\n")};
        if (!parser.positionalArguments().isEmpty())
            throw Mistake{QStringLiteral("Unexpected argument '%1'.").arg(parser.positionalArguments().first())};
        return settingsOf(parser, environment);
    } catch (const Mistake &mistake) {
        return Ending{.status = misused, .text = mistake.text + u'\n'};
    }
}
