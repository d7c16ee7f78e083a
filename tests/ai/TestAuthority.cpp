#include "ai/TestAuthority.h"

#include <cstdlib>
#include <iostream>

#include <openssl/bio.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

namespace tidlo {

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

void require(bool succeeded, const char *what)
{
    if (succeeded)
        return;
    std::cerr << "TestAuthority: " << what << " failed\n";
    std::abort();
}

QByteArray written(const Memory &memory)
{
    char *data = nullptr;
    const long size = BIO_get_mem_data(memory.get(), &data);
    return {data, static_cast<qsizetype>(size)};
}

QByteArray pem(X509 *certificate)
{
    const Memory memory(BIO_new(BIO_s_mem()));
    require(PEM_write_bio_X509(memory.get(), certificate) == 1, "PEM_write_bio_X509");
    return written(memory);
}

QByteArray pem(EVP_PKEY *key)
{
    const Memory memory(BIO_new(BIO_s_mem()));
    require(PEM_write_bio_PrivateKey(memory.get(), key, nullptr, nullptr, 0, nullptr, nullptr) == 1,
            "PEM_write_bio_PrivateKey");
    return written(memory);
}

void addExtension(X509 *certificate, int identifier, const QByteArray &value)
{
    const Extension extension(X509V3_EXT_conf_nid(nullptr, nullptr, identifier, value.constData()));
    require(extension != nullptr && X509_add_ext(certificate, extension.get(), -1) == 1, "X509_add_ext");
}

/// An unsigned certificate for \a key.
Certificate blank(const QByteArray &name, EVP_PKEY *key, const QDateTime &begin, const QDateTime &end)
{
    static long serial = 0;
    Certificate certificate(X509_new());
    X509_set_version(certificate.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), ++serial);
    ASN1_TIME_set(X509_getm_notBefore(certificate.get()), begin.toSecsSinceEpoch());
    ASN1_TIME_set(X509_getm_notAfter(certificate.get()), end.toSecsSinceEpoch());
    X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate.get()), "CN", MBSTRING_UTF8,
                               reinterpret_cast<const unsigned char *>(name.constData()), -1, -1, 0);
    require(X509_set_pubkey(certificate.get(), key) == 1, "X509_set_pubkey");
    return certificate;
}

} // namespace

struct TestAuthority::Pair
{
    Key key;
    Certificate certificate;
};

TestAuthority::TestAuthority()
    : own(std::make_unique<Pair>())
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    own->key.reset(EVP_EC_gen("P-256"));
    own->certificate = blank("Authority of a test", own->key.get(), now.addYears(-1), now.addYears(1));
    X509 *certificate = own->certificate.get();
    X509_set_issuer_name(certificate, X509_get_subject_name(certificate));
    addExtension(certificate, NID_basic_constraints, "critical,CA:TRUE");
    require(X509_sign(certificate, own->key.get(), EVP_sha256()) > 0, "X509_sign");
}

TestAuthority::~TestAuthority() = default;

QByteArray TestAuthority::certificate() const
{
    return pem(own->certificate.get());
}

TestIdentity TestAuthority::issue(const QByteArray &name, const QDateTime &end) const
{
    const Key key(EVP_EC_gen("P-256"));
    const Certificate certificate = blank(name, key.get(), end.addDays(-1), end);
    X509_set_issuer_name(certificate.get(), X509_get_subject_name(own->certificate.get()));
    addExtension(certificate.get(), NID_subject_alt_name, "DNS:" + name);
    require(X509_sign(certificate.get(), own->key.get(), EVP_sha256()) > 0, "X509_sign");
    return {.certificate = QSslCertificate(pem(certificate.get()), QSsl::Pem),
            .key = QSslKey(pem(key.get()), QSsl::Ec, QSsl::Pem)};
}

} // namespace tidlo
