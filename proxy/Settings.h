#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>
#include <variant>

namespace tidlo::proxy {

/// The protocol of a model's server: the Gemini API, or chat completions, which many servers speak.
enum class Dialect { gemini, chat };

/// The model that explains, and how to reach it.
struct Upstream
{
    Dialect dialect = Dialect::gemini;
    QString key; ///< A secret: never to be logged. Empty if there is none.
    QString model = QStringLiteral("gemini-1.5-flash");
    QUrl baseUrl{QStringLiteral("https://generativelanguage.googleapis.com")};
};

/// The files that prove the server's name, as PEM.
struct CertificateFiles
{
    QString certificate; ///< The server's own certificate first, then those of its issuers.
    QString key;
};

/// The error for settings that would let others read what is sent.
inline const QString plainIsForLoopback =
    QStringLiteral("--plain-http is only for loopback addresses: others could read what is sent.");

/// The settings of the service.
struct Settings
{
    bool isHandedOver = false; ///< The listening socket is passed in; address and port are not used.
    QString address = QStringLiteral("127.0.0.1");
    int port = 8443;                             ///< 0: any free port.
    bool isPlain = false;                        ///< HTTP without TLS.
    std::optional<CertificateFiles> certificate; ///< Without it, one for localhost is made in the state folder.
    QString stateFolder;
    int perMinute = 10;               ///< Requests of one device, 0: unlimited.
    std::optional<int> perAddress;    ///< Connections of one address at a time, 0: unlimited; without it, the default
                                      ///< depends on where the service listens.
    bool isUntilEof = false;          ///< Whether the service ends at the end of standard input.
    int idleExit = 0;                 ///< The service ends after this many seconds without a connection; 0: never.
    std::optional<Upstream> upstream; ///< Without one, explanations are written offline.
};

/// Where questions go with \a settings, as a sentence for the person who runs the service.
QString whereQuestionsGo(const Settings &settings);

/// A text to print, and the exit status.
struct Ending
{
    int status;
    QString text;
};

/// Reads the command line, without the program's name, and what \a environment says about the model, the state folder
/// and a passed socket. Returns an Ending if the program is not to run: for help, the version, or a mistake.
std::variant<Settings, Ending> settingsFrom(const QStringList &arguments, const QProcessEnvironment &environment);

} // namespace tidlo::proxy
