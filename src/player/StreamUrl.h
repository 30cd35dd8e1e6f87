#pragma once

#include <QByteArray>
#include <QString>

/// The URL as it is requested: UTF-8, with the ASCII characters that no URL may hold (blank,
/// " < > \ ^ ` { | } and control characters) percent-encoded. libVLC makes no request, or a
/// malformed one, for a URL that holds them. Everything else stays as given, percent signs too.
QByteArray requestableUrl(const QString &url);
