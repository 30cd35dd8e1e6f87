#pragma once

#include <QString>

/// A certificate authority and a server certificate for 127.0.0.1 and localhost that it signed,
/// newly made in a directory. Trust the authority through QSslConfiguration.
class TlsCertificate
{
public:
    enum class Validity
    {
        Current,
        Expired
    };

    /// Writes the three PEM files into `targetDirectory`, which exists. isValid() is false on
    /// failure.
    explicit TlsCertificate(QString targetDirectory, Validity validity = Validity::Current);

    bool isValid() const { return valid; }
    QString authorityFile() const;
    QString certificateFile() const;
    QString keyFile() const;

private:
    QString directory;
    bool valid = false;
};
