#include "proxy/Settings.h"

#include "ai/ServiceFolder.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QHostAddress>
#include <QRegularExpression>

#include <unistd.h>

namespace tidlo::proxy {
namespace {

/// Thrown only within this file.
struct Mistake
{
    QString text;
};

constexpr const char *help = R"(Usage: tidlo-proxy [options]

Explains what Tidlo found: POST /explain. GET /healthz shows whether it runs.
Questions go to the model that the environment variables below name; without
one they go nowhere, and the service writes explanations by itself.

Options:
  --address <address>   The address to listen on, instead of 127.0.0.1.
  --port <number>       The port to listen on, instead of 8443; 0: a free one.
  --certificate <file>  The server's certificate and those of its issuers, PEM.
  --key <file>          Its private key, PEM. Without both, a certificate for
                        localhost is made in the state folder.
  --plain-http          Speak HTTP without TLS, only on a loopback address:
                        for a server in front of it on the same machine.
  --per-minute <count>  How often a device may ask in a minute, instead of 10
                        times; 0: without limit.
  --per-address <count> How many connections an address may have at a time; 0:
                        without limit. The default is 64, and no limit on a
                        loopback address. An IPv6 network (/64) is one address.
  --idle-exit <seconds> End after this time without a connection.
  --until-eof           End when standard input ends, for a program that starts
                        the service for itself.
  --offline             Read no key and send nothing anywhere, whatever the
                        environment says.
  --help                Show this.
  --version             Show the version.

Environment, for a model of the Gemini API:
  GEMINI_API_KEY   The key of the API.
  GEMINI_MODEL     The model instead of gemini-1.5-flash.
  GEMINI_BASE_URL  The address of the API, instead of
                   https://generativelanguage.googleapis.com.

Environment, for a model behind chat completions, such as one on this machine:
  TIDLO_CHAT_URL   The address without /chat/completions, such as
                   http://localhost:8080/v1. HTTPS, unless on this machine.
  TIDLO_CHAT_MODEL The name of the model.
  TIDLO_CHAT_KEY   The key, if one is needed.

Other environment variables:
  STATE_DIRECTORY  The state folder, instead of tidlo-proxy in XDG_STATE_HOME or
                   in ~/.local/state.
  LISTEN_FDS, LISTEN_PID
                   A listening socket that systemd hands over, used instead
                   of an address and a port.
)";

void addOptions(QCommandLineParser &parser)
{
    for (const char *flag : {"plain-http", "until-eof", "offline", "help", "version"})
        parser.addOption({QString::fromLatin1(flag), {}});
    for (const char *name : {"address", "port", "certificate", "key", "per-minute", "per-address", "idle-exit"})
        parser.addOption({QString::fromLatin1(name), {}, QStringLiteral("value")});
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
    QString text = parser.isSet(name) ? parser.value(name) : fallback;
    const QHostAddress parsed(text);
    if (parsed.isNull())
        throw Mistake{QStringLiteral("--address must be an IP address.")};
    if (isPlain && !parsed.isLoopback())
        throw Mistake{plainIsForLoopback};
    return text;
}

std::optional<CertificateFiles> certificate(const QCommandLineParser &parser, bool isPlain)
{
    const CertificateFiles files{.certificate = parser.value(QStringLiteral("certificate")),
                                 .key = parser.value(QStringLiteral("key"))};
    if (files.certificate.isEmpty() != files.key.isEmpty())
        throw Mistake{QStringLiteral("--certificate and --key must be given together.")};
    if (files.key.isEmpty())
        return std::nullopt;
    if (isPlain)
        throw Mistake{QStringLiteral("--certificate cannot be used with --plain-http: nothing would be encrypted.")};
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

/// The environment variables that describe the model of one dialect.
struct Variables
{
    Dialect dialect;
    const char *key;
    const char *model;
    const char *url;
    const char *modelForm;
};

constexpr Variables gemini{Dialect::gemini, "GEMINI_API_KEY", "GEMINI_MODEL", "GEMINI_BASE_URL",
                           R"(\A[A-Za-z0-9._-]+\z)"}; // It becomes part of the URL.
constexpr Variables chat{Dialect::chat, "TIDLO_CHAT_KEY", "TIDLO_CHAT_MODEL", "TIDLO_CHAT_URL", R"(\A[\x21-\x7e]+\z)"};

/// \a unless holds the values for variables that are empty.
Upstream read(const Variables &variables, const QProcessEnvironment &environment, const Upstream &unless)
{
    static const QRegularExpression keyForm(QStringLiteral("\\A[\\x21-\\x7e]*\\z"));
    const auto value = [&](const char *name, const QString &otherwise) {
        const QString text = environment.value(QString::fromLatin1(name)).trimmed();
        return text.isEmpty() ? otherwise : text;
    };
    Upstream upstream{.dialect = variables.dialect,
                      .key = value(variables.key, {}),
                      .model = value(variables.model, unless.model),
                      .baseUrl = {value(variables.url, unless.baseUrl.toString()), QUrl::StrictMode}};
    if (!keyForm.match(upstream.key).hasMatch())
        throw Mistake{
            QStringLiteral("%1 contains characters that a key cannot have.").arg(QLatin1String(variables.key))};
    if (!QRegularExpression(QString::fromLatin1(variables.modelForm)).match(upstream.model).hasMatch())
        throw Mistake{QStringLiteral("%1 must be the name of a model.").arg(QLatin1String(variables.model))};
    if (!isSafeUrl(upstream.baseUrl))
        throw Mistake{QStringLiteral("%1 must begin with https:// and name a server; http:// is for this machine.")
                          .arg(QLatin1String(variables.url))};
    return upstream;
}

std::optional<Upstream> upstream(const QProcessEnvironment &environment)
{
    const auto isSet = [&](const char *name) {
        return !environment.value(QString::fromLatin1(name)).trimmed().isEmpty();
    };
    if (isSet(gemini.key) && isSet(chat.url))
        throw Mistake{QStringLiteral("GEMINI_API_KEY and TIDLO_CHAT_URL name two models: only one can be asked.")};
    if (isSet(gemini.key))
        return read(gemini, environment, {});
    if (isSet(chat.url))
        return read(chat, environment, {.key = {}, .model = {}, .baseUrl = {}});
    return std::nullopt;
}

/// Whether a socket was passed to this process, and not to a process that started it.
bool isHandedOver(const QCommandLineParser &parser, const QProcessEnvironment &environment)
{
    if (environment.value(QStringLiteral("LISTEN_PID")) != QString::number(::getpid()))
        return false;
    if (environment.value(QStringLiteral("LISTEN_FDS")) != QStringLiteral("1"))
        throw Mistake{QStringLiteral("LISTEN_FDS must be 1: one listening socket.")};
    if (parser.isSet(QStringLiteral("address")) || parser.isSet(QStringLiteral("port")))
        throw Mistake{QStringLiteral("--address and --port cannot be used with a socket that is handed over.")};
    return true;
}

QString stateFolder(const QProcessEnvironment &environment)
{
    QString given = environment.value(QStringLiteral("STATE_DIRECTORY")).section(u':', 0, 0);
    if (QDir::isAbsolutePath(given))
        return given;
    const QString home = QDir(environment.value(QStringLiteral("HOME"), QDir::homePath())).path();
    const QString states = environment.value(QStringLiteral("XDG_STATE_HOME"));
    return QFile::decodeName(serviceFolder(QFile::encodeName(home), QFile::encodeName(states)));
}

Settings settingsOf(const QCommandLineParser &parser, const QProcessEnvironment &environment)
{
    constexpr int mostPorts = 65'535;
    constexpr int mostCounted = 1'000'000;
    const Settings defaults;
    const bool isPlain = parser.isSet(QStringLiteral("plain-http"));
    const auto optional = [&](const char *name) {
        return parser.isSet(QString::fromLatin1(name)) ? std::optional(number(parser, name, 0, mostCounted))
                                                       : std::nullopt;
    };
    return {.isHandedOver = isHandedOver(parser, environment),
            .address = address(parser, defaults.address, isPlain),
            .port = number(parser, "port", defaults.port, mostPorts),
            .isPlain = isPlain,
            .certificate = certificate(parser, isPlain),
            .stateFolder = stateFolder(environment),
            .perMinute = number(parser, "per-minute", defaults.perMinute, mostCounted),
            .perAddress = optional("per-address"),
            .isUntilEof = parser.isSet(QStringLiteral("until-eof")),
            .idleExit = number(parser, "idle-exit", defaults.idleExit, mostCounted),
            .upstream = parser.isSet(QStringLiteral("offline")) ? std::nullopt : upstream(environment)};
}

} // namespace

QString whereQuestionsGo(const Settings &settings)
{
    if (!settings.upstream)
        return QStringLiteral("Explanations are written offline; questions go nowhere.");
    const QString server = settings.upstream->baseUrl.toString(QUrl::FullyEncoded);
    return QStringLiteral("Questions go to %1 (%2).").arg(server, settings.upstream->model);
}

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

} // namespace tidlo::proxy
