#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

/// Keeps credentials out of trace lines. All functions are for the GUI thread.

/// While it or a copy of it exists, traceSafe() and the functions like it replace a secret by "***"
/// wherever it occurs, in every encoding that SecretMatcher finds.
///
/// Secrets of fewer than four characters would blank out harmless text; they are redacted only
/// where CredentialPatterns.h finds a credential. Costs nothing while tracing is off.
class RedactionScope final
{
public:
    RedactionScope() = default;
    /// Redacts `secret`, and the credentials that `url` carries. Either may be empty.
    explicit RedactionScope(const QString &secret, const QString &url = {});

private:
    struct Registration;
    std::shared_ptr<const Registration> registration;
};

/// `text` with every secret of a RedactionScope and every value in the position of a credential
/// (see CredentialPatterns.h) replaced by "***".
QString traceSafe(const QString &text);

/// traceSafe() for a stream URL. In this URL only, it also redacts the password position of the
/// short form of account streams ("/user/password/1"), which may be a harmless folder elsewhere.
QString traceSafeUrl(const QString &url);

/// The first `maxBytes` bytes of `body`, decoded as UTF-8 and redacted as by traceSafe(). A secret
/// that starts before the cut is redacted as a whole.
QString traceSafeHead(const QByteArray &body, qsizetype maxBytes);
