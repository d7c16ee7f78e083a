#include "proxy/Certificate.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

namespace {

template <auto release>
struct Release
{
    void operator()(auto *object) const { release(object); }
};

using Key = std::unique_ptr<EVP_PKEY, Release<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Release<X509_free>>;
using Extension = std::unique_ptr<X509_EXTENSION, Release<X509_EXTENSION_free>>;
using Memory = std::unique_ptr<BIO, Release<BIO_free_all>>;

constexpr QFileDevice::Permissions ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr qint64 daysValid = 365;
constexpr qint64 daysLeft = 30;

/// Nobody is asked for the password of a key.
int noPassword(char *, int, int, void *)
{
    return 0;
}

Memory contentOf(const QString &name)
{
    return Memory(BIO_new_file(QFile::encodeName(name).constData(), "r"));
}

bool holdsUntil(const X509 *certificate, const QDateTime &end)
{
    time_t seconds = end.toSecsSinceEpoch();
    return X509_cmp_time(X509_get0_notAfter(certificate), &seconds) > 0;
}

bool isUsable(const CertificateFiles &files, const QDateTime &now)
{
    const Memory certificateFile = contentOf(files.certificate);
    const Memory keyFile = contentOf(files.key);
    if (!certificateFile || !keyFile)
        return false;
    const Certificate certificate(PEM_read_bio_X509(certificateFile.get(), nullptr, noPassword, nullptr));
    const Key key(PEM_read_bio_PrivateKey(keyFile.get(), nullptr, noPassword, nullptr));
    return certificate && key && X509_check_private_key(certificate.get(), key.get()) == 1 &&
           holdsUntil(certificate.get(), now.addDays(daysLeft)) && QFile::setPermissions(files.key, ownerOnly);
}

bool addExtension(X509 *certificate, int identifier, const char *value)
{
    const Extension extension(X509V3_EXT_conf_nid(nullptr, nullptr, identifier, value));
    return extension && X509_add_ext(certificate, extension.get(), -1) == 1;
}

bool addExtensions(X509 *certificate)
{
    return addExtension(certificate, NID_basic_constraints, "critical,CA:FALSE") && // It vouches for nobody else.
           addExtension(certificate, NID_ext_key_usage, "serverAuth") &&
           addExtension(certificate, NID_subject_alt_name, "DNS:localhost,IP:127.0.0.1,IP:::1");
}

bool setSerial(X509 *certificate)
{
    quint64 serial = 0;
    return RAND_bytes(reinterpret_cast<unsigned char *>(&serial), sizeof serial) == 1 &&
           ASN1_INTEGER_set_uint64(X509_get_serialNumber(certificate), serial >> 1) == 1;
}

bool setTimes(X509 *certificate, const QDateTime &now)
{
    return ASN1_TIME_set(X509_getm_notBefore(certificate), now.addDays(-1).toSecsSinceEpoch()) != nullptr &&
           ASN1_TIME_set(X509_getm_notAfter(certificate), now.addDays(daysValid).toSecsSinceEpoch()) != nullptr;
}

bool setNames(X509 *certificate)
{
    X509_NAME *name = X509_get_subject_name(certificate);
    const auto *localhost = reinterpret_cast<const unsigned char *>("localhost");
    return X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_UTF8, localhost, -1, -1, 0) == 1 &&
           X509_set_issuer_name(certificate, name) == 1;
}

/// Nothing if it cannot be made.
Certificate selfSigned(EVP_PKEY *key, const QDateTime &now)
{
    Certificate made(X509_new());
    X509 *certificate = made.get();
    const bool isSigned = certificate != nullptr && X509_set_version(certificate, X509_VERSION_3) == 1 &&
                          setSerial(certificate) && setTimes(certificate, now) && setNames(certificate) &&
                          X509_set_pubkey(certificate, key) == 1 && addExtensions(certificate) &&
                          X509_sign(certificate, key, EVP_sha256()) > 0;
    return isSigned ? std::move(made) : nullptr;
}

QByteArray written(const Memory &memory)
{
    char *data = nullptr;
    const long size = BIO_get_mem_data(memory.get(), &data);
    return {data, static_cast<qsizetype>(size)};
}

/// Whole or not at all, and never for a moment readable by others.
bool save(const QString &name, const QByteArray &content)
{
    QSaveFile file(name);
    return file.open(QIODevice::WriteOnly) && file.setPermissions(ownerOnly) && file.write(content) == content.size() &&
           file.commit();
}

bool makeFiles(const CertificateFiles &files, const QDateTime &now)
{
    const Key key(EVP_EC_gen("P-256"));
    const Certificate certificate = key ? selfSigned(key.get(), now) : nullptr;
    const Memory keyText(BIO_new(BIO_s_mem()));
    const Memory certificateText(BIO_new(BIO_s_mem()));
    return certificate &&
           PEM_write_bio_PrivateKey(keyText.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr) == 1 &&
           PEM_write_bio_X509(certificateText.get(), certificate.get()) == 1 && save(files.key, written(keyText)) &&
           save(files.certificate, written(certificateText));
}

QString reason(const QString &file)
{
    const char *words = ERR_reason_error_string(ERR_peek_last_error());
    ERR_clear_error();
    return QStringLiteral("%1 cannot be used: %2.").arg(file, QString::fromUtf8(words ? words : "it is not valid"));
}

} // namespace

OrReason<CertificateFiles> localhostCertificate(const QString &folder, const QDateTime &now)
{
    const CertificateFiles files{.certificate = folder + QStringLiteral("/certificate.pem"),
                                 .key = folder + QStringLiteral("/key.pem")};
    const bool isFound = isUsable(files, now);
    ERR_clear_error();
    if (isFound)
        return {.value = files, .reason = {}};
    if (!QDir().mkpath(folder) || !makeFiles(files, now))
        return {.value = {}, .reason = QStringLiteral("A certificate cannot be made in %1.").arg(folder)};
    return {.value = files, .reason = {}};
}

OrReason<std::shared_ptr<SSL_CTX>> tlsFrom(const CertificateFiles &files)
{
    const std::shared_ptr<SSL_CTX> tls(SSL_CTX_new(TLS_server_method()), SSL_CTX_free);
    SSL_CTX_set_min_proto_version(tls.get(), TLS1_2_VERSION);
    SSL_CTX_set_options(tls.get(), SSL_OP_NO_RENEGOTIATION);
    SSL_CTX_set_mode(tls.get(), SSL_MODE_RELEASE_BUFFERS);
    SSL_CTX_set_default_passwd_cb(tls.get(), noPassword);
    if (SSL_CTX_use_certificate_chain_file(tls.get(), QFile::encodeName(files.certificate).constData()) != 1)
        return {.value = nullptr, .reason = reason(files.certificate)};
    if (SSL_CTX_use_PrivateKey_file(tls.get(), QFile::encodeName(files.key).constData(), SSL_FILETYPE_PEM) != 1)
        return {.value = nullptr, .reason = reason(files.key)};
    return {.value = tls, .reason = {}};
}
