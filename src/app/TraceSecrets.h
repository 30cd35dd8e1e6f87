#pragma once

#include <QByteArray>
#include <QString>

/// Keeps credentials out of trace lines. All functions are for the GUI thread.

/// From now on traceSafe() and traceSafeHead() replace `secret` by "***". An empty text is ignored.
void hideFromTrace(const QString &secret);

/// Registers the credentials that a URL carries: the password of its user info, the values of query
/// items that name a password, key or token, and the password segment of account stream paths
/// ("/live/user/password/1.ts", likewise "movie" and "series").
void hideUrlCredentialsFromTrace(const QString &url);

/// `text` with every registered secret replaced by "***". A secret is found in each spelling that a
/// URL, a JSON text or an HTML page can give it, character by character: as it is, percent-encoded
/// (also several times over), with a JSON escape, as a character reference, and whole in Base64.
QString traceSafe(const QString &text);

/// traceSafe() for a stream URL. Masks also what stands where the short form of account streams has
/// the password ("/user/password/1"), in this URL only: it may as well be an innocent folder.
QString traceSafeUrl(const QString &url);

/// The first `maxBytes` bytes of `body`, read as UTF-8, masked as by traceSafe(). A secret that
/// begins before the cut is masked as a whole, so that no part of it stays.
QString traceSafeHead(const QByteArray &body, qsizetype maxBytes);
