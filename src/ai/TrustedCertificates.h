#pragma once

#include <QSslConfiguration>

/// How servers are verified: always, against the system's certificate authorities and those in the PEM file that the
/// environment names in SSL_CERT_FILE, if it does. A file that cannot be read adds nothing. The first call with such a
/// file takes a tenth of a second. May be called from any thread.
QSslConfiguration trustedCertificates();
