#pragma once

#include "app/SecretSpelling.h"

#include <QStringList>

/// Recognises credentials by the name or the place under which they stand.

/// Whether a query item, JSON member or the like of that name holds a credential: "password",
/// "token", "key" and their kind, as a whole word of the name ("api_key", "authToken").
bool namesCredential(const QString &name);

/// The values that a text shows under names of credentials, whether or not it is well-formed JSON,
/// HTML or a URL: of JSON members, query items and elements. Also the password of a URL's user
/// information, and the password segment of account paths ("/live/user/password/1.ts", likewise
/// "movie", "series", "timeshift" and "/playlist/user/password").
///
/// `latin1` is UTF-8 read as Latin-1: one character per byte.
QList<TextRange> findCredentialValues(const QString &latin1);

/// The credentials that a URL carries in these places, decoded.
QStringList urlCredentials(const QString &url);
