#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>
#include <variant>

namespace tidlo::proxy {

/// How a model's server is spoken to: as the Gemini API, or as the many servers of chat completions.
enum class Dialect { gemini, chat };

/// The model that explains, and how it is reached.
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
    QString certificate; ///< The server's own first, then what issued it.
    QString key;
};

/// Refuses settings that would let others read what is sent.
inline const QString plainIsForLoopback =
    QStringLiteral("--plain-http is for loopback addresses alone: others could read what is sent.");

/// How the service is to run.
struct Settings
{
    bool isHandedOver = false; ///< The socket that listens, so that address and port do not count.
    QString address = QStringLiteral("127.0.0.1");
    int port = 8443;                             ///< 0 for any that is free.
    bool isPlain = false;                        ///< HTTP without TLS.
    std::optional<CertificateFiles> certificate; ///< Without them, one for localhost is made in the state folder.
    QString stateFolder;
    int perMinute = 10;               ///< Requests of one device, 0 for any number.
    std::optional<int> perAddress;    ///< Connections of one address at a time, 0 for any number; unless given, it
                                      ///< depends on where the service listens.
    bool isUntilEof = false;          ///< Whether it ends at the end of standard input.
    int idleExit = 0;                 ///< Seconds without a connection after which it ends, 0 for never.
    std::optional<Upstream> upstream; ///< Without one, explanations are written offline.
};

/// Where questions go with \a settings, as a sentence for whoever runs the service.
QString whereQuestionsGo(const Settings &settings);

/// A text to print, and the status to end with.
struct Ending
{
    int status;
    QString text;
};

/// Reads the command line, without the program's name, and what \a environment says about the model, the state folder
/// and a socket that was handed over to this process; or why the program is not to run: help or version, or a mistake.
std::variant<Settings, Ending> settingsFrom(const QStringList &arguments, const QProcessEnvironment &environment);

} // namespace tidlo::proxy
