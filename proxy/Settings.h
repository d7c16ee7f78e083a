#pragma once

#include "model/FilePath.h"

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

/// The model that explains, and how it is reached.
struct Upstream
{
    QString key; ///< A secret: never to be logged.
    QString model = QStringLiteral("gemini-1.5-flash");
    QString baseUrl = QStringLiteral("https://generativelanguage.googleapis.com");
};

/// The files that prove the server's name, as PEM.
struct CertificateFiles
{
    QString certificate; ///< The server's own first, then what issued it.
    QString key;
};

/// How the service is to run.
struct Settings
{
    QString address = QStringLiteral("127.0.0.1");
    int port = 8443;                             ///< 0 for any that is free.
    bool isPlain = false;                        ///< HTTP without TLS.
    std::optional<CertificateFiles> certificate; ///< Without them, one for localhost is made in the state folder.
    QString stateFolder;
    int perMinute = 10;               ///< Requests of one device, 0 for any number.
    std::optional<Upstream> upstream; ///< Without one, explanations are written offline.
};

/// A text to print, and the status to end with.
struct Ending
{
    int status;
    QString text;
};

/// Reads the command line, without the program's name, and what \a environment says about the model and the state
/// folder; or why the program is not to run: help or version, or a mistake.
std::variant<Settings, Ending> settingsFrom(const QStringList &arguments, const QProcessEnvironment &environment);
