#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

/// Keeps credentials out of trace lines. All functions are for the GUI thread.

/// While it or a copy of it lives, traceSafe() and its kind replace a secret by "***" wherever it
/// stands, in each spelling that SecretSpelling.h names.
///
/// Secrets of less than four characters would blank innocent texts; they are hidden only under the
/// names and in the places that CredentialPatterns.h names. Costs nothing while tracing is off.
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

/// `text` with every secret that a RedactionScope knows, and every value that stands under the name
/// or in the place of a credential, replaced by "***".
QString traceSafe(const QString &text);

/// traceSafe() for a stream URL. Masks also what stands where the short form of account streams has
/// the password ("/user/password/1"), in this URL only: it may as well be an innocent folder.
QString traceSafeUrl(const QString &url);

/// The first `maxBytes` bytes of `body`, read as UTF-8, masked as by traceSafe(). A secret that
/// begins before the cut is masked as a whole, so that no part of it stays.
QString traceSafeHead(const QByteArray &body, qsizetype maxBytes);
