#include "model/StreamHeaders.h"

#include <QUrl>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestValue = 2048;
constexpr auto userAgentName = "User-Agent"_L1;
constexpr auto referrerName = "Referer"_L1;
/// The way the word is spelt everywhere else.
constexpr auto otherReferrerName = "Referrer"_L1;
/// What else is written behind addresses for other players. It is set aside, and not sent.
constexpr std::array otherNames{"Accept"_L1, "Authorization"_L1, "Cookie"_L1,
                                "Host"_L1,   "Origin"_L1,        "verifypeer"_L1};
constexpr auto extensionPrefix = "X-"_L1;

bool isSeparator(QChar character)
{
    return character == u'&' || character == u'|';
}

bool isNamed(QStringView name, QLatin1StringView other)
{
    return name.compare(other, Qt::CaseInsensitive) == 0;
}

bool isHeaderName(QStringView name)
{
    return isNamed(name, userAgentName) || isNamed(name, referrerName) ||
           isNamed(name, otherReferrerName) ||
           name.startsWith(extensionPrefix, Qt::CaseInsensitive) ||
           std::any_of(otherNames.begin(), otherNames.end(),
                       [name](QLatin1StringView other) { return isNamed(name, other); });
}

bool beginsWithHeader(QStringView text)
{
    const qsizetype equals = text.indexOf(u'=');
    return equals > 0 && isHeaderName(text.first(equals).trimmed());
}

/// Empty for what must not be sent.
QString decodedValue(QStringView text)
{
    const QString value = QUrl::fromPercentEncoding(text.toUtf8()).trimmed();
    return isHeaderValue(value) ? value : QString();
}

void takeHeader(StreamHeaders &headers, QStringView piece)
{
    const qsizetype equals = piece.indexOf(u'=');
    if (equals < 0) {
        return;
    }
    const QStringView name = piece.first(equals).trimmed();
    const QStringView value = piece.sliced(equals + 1);
    if (isNamed(name, userAgentName)) {
        headers.userAgent = decodedValue(value);
    } else if (isNamed(name, referrerName) || isNamed(name, otherReferrerName)) {
        headers.referrer = decodedValue(value);
    }
}

} // namespace

StreamHeaders StreamHeaders::orElse(const StreamHeaders &fallback) const
{
    return {userAgent.isEmpty() ? fallback.userAgent : userAgent,
            referrer.isEmpty() ? fallback.referrer : referrer};
}

bool isHeaderValue(QStringView text)
{
    const auto isPrintable = [](QChar character) { return character >= u' ' && character <= u'~'; };
    return !text.isEmpty() && text.size() <= longestValue && text.front() != u' ' &&
           text.back() != u' ' && std::all_of(text.begin(), text.end(), isPrintable);
}

QString textOfHeaders(const StreamHeaders &headers)
{
    QString text;
    const auto append = [&text](QLatin1StringView name, const QString &value) {
        if (!value.isEmpty()) {
            text += (text.isEmpty() ? ""_L1 : "&"_L1) + name + u'=' +
                    QString::fromLatin1(QUrl::toPercentEncoding(value));
        }
    };
    append(userAgentName, headers.userAgent);
    append(referrerName, headers.referrer);
    return text;
}

StreamHeaders headersOfText(QStringView text)
{
    StreamHeaders headers;
    while (!text.isEmpty()) {
        const auto end = std::find_if(text.begin(), text.end(), isSeparator);
        const qsizetype length = end - text.begin();
        takeHeader(headers, text.first(length));
        text = text.sliced(std::min(length + 1, text.size()));
    }
    return headers;
}

StreamAddress splitStreamAddress(const QString &address)
{
    for (qsizetype bar = address.indexOf(u'|'); bar >= 0; bar = address.indexOf(u'|', bar + 1)) {
        const QStringView suffix = QStringView(address).sliced(bar + 1);
        if (beginsWithHeader(suffix)) {
            return {address.first(bar).trimmed(), headersOfText(suffix)};
        }
    }
    return {address, {}};
}
