#include "proxy/Certificate.h"

#include "ai/ServiceFolder.h"
#include "platform/AtomicFile.h"
#include "platform/SmallFile.h"

#include <QFile>

#include <cerrno>
#include <filesystem>

#include <fcntl.h>
#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>
#include <sys/stat.h>

namespace tidlo::proxy {
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

constexpr qint64 daysValid = 365;
constexpr qint64 daysLeft = 30;

/// Never asks anybody for the password of a key.
int noPassword(char *, int, int, void *)
{
    return 0;
}

/// Valid only while \a content exists.
Memory reading(const QByteArray &content)
{
    return Memory(BIO_new_mem_buf(content.constData(), static_cast<int>(content.size())));
}

bool holdsUntil(const X509 *certificate, const QDateTime &end)
{
    time_t seconds = end.toSecsSinceEpoch();
    return X509_cmp_time(X509_get0_notAfter(certificate), &seconds) > 0;
}

bool isUsable(const QByteArray &certificateText, const QByteArray &keyText, const QDateTime &now)
{
    const Certificate certificate(PEM_read_bio_X509(reading(certificateText).get(), nullptr, noPassword, nullptr));
    const Key key(PEM_read_bio_PrivateKey(reading(keyText).get(), nullptr, noPassword, nullptr));
    return certificate && key && X509_check_private_key(certificate.get(), key.get()) == 1 &&
           holdsUntil(certificate.get(), now.addDays(daysLeft));
}

bool keepToOwner(const QString &name)
{
    return ::fchmodat(AT_FDCWD, QFile::encodeName(name).constData(), S_IRUSR | S_IWUSR, AT_SYMLINK_NOFOLLOW) == 0;
}

bool addExtension(X509 *certificate, int identifier, const char *value)
{
    const Extension extension(X509V3_EXT_conf_nid(nullptr, nullptr, identifier, value));
    return extension && X509_add_ext(certificate, extension.get(), -1) == 1;
}

bool addExtensions(X509 *certificate)
{
    return addExtension(certificate, NID_basic_constraints, "critical,CA:FALSE") && // Cannot sign others.
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

/// OpenSSL's words for the last failure, or \a unknown if it has none.
QString failure(const char *unknown)
{
    const char *words = ERR_reason_error_string(ERR_peek_last_error());
    ERR_clear_error();
    return QString::fromUtf8(words ? words : unknown);
}

QString cannotUse(const QString &file, const QString &why)
{
    return QStringLiteral("%1 cannot be used: %2.").arg(file, why);
}

/// The content of the regular file \a name, 64 KB at most; nothing, and no reason, if it does not exist.
OrReason<std::optional<QByteArray>> contentOf(const QString &name, LinkAtEnd link)
{
    OrError<QByteArray> content = readSmallFile(QFile::encodeName(name), link);
    switch (content.error()) {
    case 0:
        return {.value = std::move(*content), .reason = {}};
    case ENOENT:
    case ENOTDIR:
        return {};
    case ELOOP:
        return {.value = {}, .reason = cannotUse(name, QStringLiteral("it is a link"))};
    case EBADMSG:
        return {.value = {}, .reason = cannotUse(name, QStringLiteral("it is not a regular file"))};
    case EFBIG:
        return {.value = {}, .reason = cannotUse(name, QStringLiteral("it is larger than 64 KB"))};
    default:
        return {.value = {}, .reason = cannotUse(name, qt_error_string(content.error()))};
    }
}

/// For this user alone, whatever the umask: clients trust what is in it. Returns 0, or the errno of the failure.
int makeFolder(const FilePath &folder)
{
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(folder.toStdString()).parent_path(), error);
    const int made = error ? error.value() : errorOf([&] { return ::mkdir(folder.constData(), S_IRWXU); });
    return made == EEXIST ? 0 : made;
}

/// Returns why they cannot be made, or nothing.
QString makeFiles(const CertificateFiles &files, const QDateTime &now)
{
    const Key key(EVP_EC_gen("P-256"));
    const Certificate certificate = key ? selfSigned(key.get(), now) : nullptr;
    const Memory keyText(BIO_new(BIO_s_mem()));
    const Memory certificateText(BIO_new(BIO_s_mem()));
    if (!certificate ||
        PEM_write_bio_PrivateKey(keyText.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr) != 1 ||
        PEM_write_bio_X509(certificateText.get(), certificate.get()) != 1)
        return failure("OpenSSL fails");
    int error = writeAtomically(QFile::encodeName(files.key), written(keyText));
    if (error == 0)
        error = writeAtomically(QFile::encodeName(files.certificate), written(certificateText));
    return error == 0 ? QString() : qt_error_string(error);
}

/// Reads the server's certificate, then those of its issuers.
bool useChain(SSL_CTX *tls, const QByteArray &content)
{
    const Memory memory = reading(content);
    const Certificate own(PEM_read_bio_X509_AUX(memory.get(), nullptr, noPassword, nullptr));
    if (!own || SSL_CTX_use_certificate(tls, own.get()) != 1)
        return false;
    while (X509 *issuer = PEM_read_bio_X509(memory.get(), nullptr, noPassword, nullptr)) {
        if (SSL_CTX_add0_chain_cert(tls, issuer) != 1) {
            X509_free(issuer);
            return false;
        }
    }
    const bool isEnd = ERR_GET_REASON(ERR_peek_last_error()) == PEM_R_NO_START_LINE;
    if (isEnd)
        ERR_clear_error();
    return isEnd;
}

bool useKey(SSL_CTX *tls, const QByteArray &content)
{
    const Key key(PEM_read_bio_PrivateKey(reading(content).get(), nullptr, noPassword, nullptr));
    return key && SSL_CTX_use_PrivateKey(tls, key.get()) == 1;
}

/// Passes the content of \a file to \a use. Returns why that failed, or nothing.
QString take(const QString &file, SSL_CTX *tls, bool (*use)(SSL_CTX *tls, const QByteArray &content))
{
    const auto content = contentOf(file, LinkAtEnd::followed);
    if (!content.reason.isEmpty())
        return content.reason;
    if (!content.value)
        return cannotUse(file, QStringLiteral("it does not exist"));
    ERR_clear_error();
    return use(tls, *content.value) ? QString() : cannotUse(file, failure("it is not valid"));
}

} // namespace

OrReason<CertificateFiles> localhostCertificate(const QString &folder, const QDateTime &now)
{
    const CertificateFiles files{.certificate = folder + u'/' + QLatin1StringView(serviceCertificate),
                                 .key = folder + QStringLiteral("/key.pem")};
    const auto certificate = contentOf(files.certificate, LinkAtEnd::refused);
    const auto key = contentOf(files.key, LinkAtEnd::refused);
    for (const auto &read : {certificate, key}) {
        if (!read.reason.isEmpty())
            return {.value = {}, .reason = read.reason};
    }
    const bool isFound =
        certificate.value && key.value && isUsable(*certificate.value, *key.value, now) && keepToOwner(files.key);
    ERR_clear_error();
    if (isFound)
        return {.value = files, .reason = {}};
    const int error = makeFolder(QFile::encodeName(folder));
    const QString why = error == 0 ? makeFiles(files, now) : qt_error_string(error);
    if (!why.isEmpty())
        return {.value = {}, .reason = QStringLiteral("A certificate cannot be made in %1: %2.").arg(folder, why)};
    return {.value = files, .reason = {}};
}

OrReason<std::shared_ptr<SSL_CTX>> tlsFrom(const CertificateFiles &files)
{
    const std::shared_ptr<SSL_CTX> tls(SSL_CTX_new(TLS_server_method()), SSL_CTX_free);
    SSL_CTX_set_min_proto_version(tls.get(), TLS1_2_VERSION);
    SSL_CTX_set_options(tls.get(), SSL_OP_NO_RENEGOTIATION);
    SSL_CTX_set_mode(tls.get(), SSL_MODE_RELEASE_BUFFERS);
    QString reason = take(files.certificate, tls.get(), useChain);
    if (reason.isEmpty())
        reason = take(files.key, tls.get(), useKey);
    return reason.isEmpty() ? OrReason<std::shared_ptr<SSL_CTX>>{.value = tls, .reason = {}}
                            : OrReason<std::shared_ptr<SSL_CTX>>{.value = nullptr, .reason = reason};
}

std::shared_ptr<SSL_CTX> tlsOfAClient()
{
    std::shared_ptr<SSL_CTX> tls(SSL_CTX_new(TLS_client_method()), SSL_CTX_free);
    SSL_CTX_set_min_proto_version(tls.get(), TLS1_2_VERSION);
    SSL_CTX_set_mode(tls.get(), SSL_MODE_RELEASE_BUFFERS);
    SSL_CTX_set_default_verify_paths(tls.get());
    return tls;
}

} // namespace tidlo::proxy
