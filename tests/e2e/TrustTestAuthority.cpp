// Linked into the program that tst_Subscription runs: adds the authority in the file that
// SSL_CERT_FILE names to the trusted ones, as an administrator would in the system's store, which
// is all that Qt reads. Certificates are checked as ever.

#include <QCoreApplication>
#include <QSslCertificate>
#include <QSslConfiguration>

namespace {

void trustAuthority()
{
    const QString file = qEnvironmentVariable("SSL_CERT_FILE");
    if (file.isEmpty()) {
        return;
    }
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.addCaCertificates(QSslCertificate::fromPath(file));
    QSslConfiguration::setDefaultConfiguration(configuration);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(trustAuthority)
