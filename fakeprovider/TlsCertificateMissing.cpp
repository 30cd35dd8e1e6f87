#include "fakeprovider/TlsCertificate.h"

#include <QtGlobal>

#include <utility>

// Certificates are made with OpenSSL, which the Windows build does without. Tests that need one
// skip themselves before they come here.

TlsCertificate::TlsCertificate(QString targetDirectory, Validity /*validity*/)
    : directory(std::move(targetDirectory))
{
    qFatal("TlsCertificate: there is none on Windows; the test must be skipped");
}

QString TlsCertificate::authorityFile() const
{
    return directory;
}

QString TlsCertificate::certificateFile() const
{
    return directory;
}

QString TlsCertificate::keyFile() const
{
    return directory;
}
