#include "fakeprovider/TlsCertificate.h"

#include <QFile>

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr long kDaySeconds = 24L * 60 * 60;

template <auto Free>
struct Deleter
{
    template <typename T>
    void operator()(T *object) const
    {
        Free(object);
    }
};
using Key = std::unique_ptr<EVP_PKEY, Deleter<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Deleter<X509_free>>;
using Extension = std::unique_ptr<X509_EXTENSION, Deleter<X509_EXTENSION_free>>;
using Bio = std::unique_ptr<BIO, Deleter<BIO_free_all>>;

struct Identity
{
    Key key;
    Certificate certificate;
};

bool addExtension(X509 *certificate, X509 *issuer, int nid, const char *value)
{
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
    const Extension extension(X509V3_EXT_conf_nid(nullptr, &context, nid, value));
    return extension && X509_add_ext(certificate, extension.get(), -1) == 1;
}

/// Makes a key and an unsigned certificate that was valid from two days ago until `untilSeconds`
/// from now.
Identity makeIdentity(const QByteArray &name, long serial, long untilSeconds)
{
    Identity made{Key(EVP_PKEY_Q_keygen(nullptr, nullptr, "EC", "P-256")), Certificate(X509_new())};
    if (!made.key || !made.certificate)
        return {};
    X509 *certificate = made.certificate.get();
    X509_set_version(certificate, X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate), serial);
    X509_gmtime_adj(X509_getm_notBefore(certificate), -2 * kDaySeconds);
    X509_gmtime_adj(X509_getm_notAfter(certificate), untilSeconds);
    X509_set_pubkey(certificate, made.key.get());
    X509_NAME_add_entry_by_NID(X509_get_subject_name(certificate), NID_commonName, MBSTRING_UTF8,
                               reinterpret_cast<const unsigned char *>(name.constData()), -1, -1,
                               0);
    return made;
}

bool sign(X509 *certificate, const Identity &issuer)
{
    X509_set_issuer_name(certificate, X509_get_subject_name(issuer.certificate.get()));
    return X509_sign(certificate, issuer.key.get(), EVP_sha256()) != 0;
}

template <typename Writer>
bool writePem(const QString &path, Writer writer)
{
    const Bio bio(BIO_new_file(QFile::encodeName(path).constData(), "w"));
    return bio && writer(bio.get()) == 1;
}

} // namespace

TlsCertificate::TlsCertificate(QString targetDirectory, Validity validity)
    : directory(std::move(targetDirectory))
{
    // A name of its own for each kind, so that a client can trust both.
    const Identity authority = makeIdentity(
        validity == Validity::Current ? "Test authority"_ba : "Test authority of what expired"_ba,
        1, kDaySeconds);
    const Identity server =
        makeIdentity("127.0.0.1"_ba, 2, validity == Validity::Current ? kDaySeconds : -kDaySeconds);
    if (!authority.certificate || !server.certificate)
        return;
    X509 *const authorityX509 = authority.certificate.get();
    X509 *const serverX509 = server.certificate.get();
    valid = addExtension(authorityX509, authorityX509, NID_basic_constraints, "critical,CA:TRUE") &&
            addExtension(authorityX509, authorityX509, NID_key_usage, "critical,keyCertSign") &&
            sign(authorityX509, authority) &&
            addExtension(serverX509, authorityX509, NID_subject_alt_name,
                         "IP:127.0.0.1,DNS:localhost") &&
            sign(serverX509, authority) &&
            writePem(authorityFile(),
                     [&](BIO *bio) { return PEM_write_bio_X509(bio, authorityX509); }) &&
            writePem(certificateFile(),
                     [&](BIO *bio) { return PEM_write_bio_X509(bio, serverX509); }) &&
            writePem(keyFile(), [&](BIO *bio) {
                return PEM_write_bio_PrivateKey(bio, server.key.get(), nullptr, nullptr, 0, nullptr,
                                                nullptr);
            });
}

QString TlsCertificate::authorityFile() const
{
    return directory + "/authority.pem"_L1;
}

QString TlsCertificate::certificateFile() const
{
    return directory + "/certificate.pem"_L1;
}

QString TlsCertificate::keyFile() const
{
    return directory + "/key.pem"_L1;
}
