#pragma once

#include <QByteArray>
#include <QString>

/// The URL as libVLC can request it: UTF-8, with the ASCII characters that are invalid in a URL
/// (space, " < > \ ^ ` { | } and control characters) percent-encoded. For a URL with such
/// characters libVLC makes no request or a malformed one. A demuxer that the scheme names
/// ("http/ts://") is left out: libVLC finds it by itself. Everything else is unchanged, including
/// percent signs.
QByteArray requestableUrl(const QString &url);
