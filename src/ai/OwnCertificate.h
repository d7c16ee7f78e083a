#pragma once

#include "model/FilePath.h"

#include <QByteArray>
#include <QString>

namespace tidlo {

/// The certificate, as PEM, that the user's own tidlo-proxy stores in its state folder, trusted for requests to \a
/// host. Empty unless that is "localhost", "127.0.0.1" or "::1". Also empty if the folder or the file is a link,
/// belongs to another user or can be written by another, or if the file is not a regular one of 64 KB at most. Each
/// call reads it anew. Any thread.
QByteArray ownCertificateFor(const QString &host);

/// The state folder of the user's own tidlo-proxy, whether or not it exists.
FilePath ownServiceFolder();

} // namespace tidlo
