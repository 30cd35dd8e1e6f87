#pragma once

#include "app/SecretMatcher.h"

#include <QStringList>

/// Recognises credentials by their names and by their position in a URL.

/// Whether a query item, JSON member or the like of that name holds a credential: "password",
/// "token", "key" and their kind, as a whole word of the name ("api_key", "authToken").
bool namesCredential(const QString &name);

/// The values in a text that are named as credentials (JSON members, query items, elements), the
/// password in a URL's user information, and the password segment of account paths
/// ("/live/user/password/1.ts", likewise "movie", "series", "timeshift",
/// "/playlist/user/password"). The text need not be well-formed.
///
/// `latin1` is UTF-8 decoded as Latin-1: one character per byte.
QList<TextRange> findCredentialValues(const QString &latin1);

/// The credentials that a URL contains in these positions, decoded.
QStringList urlCredentials(const QString &url);
