#pragma once

#include <QString>
#include <QStringView>

/// The HTTP headers that some servers want to see before they send a stream. An empty one is not
/// sent in any special form.
struct StreamHeaders
{
    QString userAgent;
    QString referrer;

    bool operator==(const StreamHeaders &) const = default;

    /// These where they are set, otherwise those of `fallback`.
    StreamHeaders orElse(const StreamHeaders &fallback) const;
};

/// Whether a text may be sent as the value of a header: 1 to 2048 characters of printable ASCII,
/// without blanks at its ends.
bool isHeaderValue(QStringView text);

/// The headers as one text, "User-Agent=...&Referer=..." with percent-encoded values; empty when
/// there are none.
QString textOfHeaders(const StreamHeaders &headers);
/// The headers in such a text: names in any case, values percent-encoded or not, separated by '&'
/// or '|'. Other names, and values that must not be sent, are left out.
StreamHeaders headersOfText(QStringView text);

/// An address of a playlist, taken apart.
struct StreamAddress
{
    QString url;
    StreamHeaders headers;
};

/// Sets aside the headers that may follow an address behind a '|'. What does not begin with the
/// name of a header stays part of the URL.
StreamAddress splitStreamAddress(const QString &address);
