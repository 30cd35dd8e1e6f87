#include "app/TraceSecrets.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>
#include <QUrl>
#include <QUrlQuery>

using namespace Qt::StringLiterals;

namespace {

const QByteArray mask = "***"_ba;
// The longest spelling of one byte is a percent sign encoded a few times over, or "&#x0000ff;".
constexpr qsizetype longestSpellingOfByte = 16;

/// The spellings of one character, as a pattern over UTF-8 bytes read as Latin-1.
QString characterPattern(char32_t character)
{
    const QByteArray bytes = QString::fromUcs4(&character, 1).toUtf8();
    QString percent;
    for (const char byte : bytes) {
        percent += u"%(?:25)*(?i:"_s + QString::fromLatin1(QByteArray(1, byte).toHex()) + u')';
    }
    QStringList spellings{QRegularExpression::escape(QString::fromLatin1(bytes)), percent};

    QString json;
    for (const QChar unit : QString::fromUcs4(&character, 1)) {
        json += u"\\\\+u(?i:%1)"_s.arg(unit.unicode(), 4, 16, QLatin1Char('0'));
    }
    spellings << json;
    spellings << u"&#(?:0*%1|(?i:x0*%2));"_s.arg(static_cast<uint>(character))
                     .arg(static_cast<uint>(character), 0, 16);
    switch (character) {
    case U' ':
        spellings << u"\\+"_s;
        break;
    case U'&':
        spellings << u"&amp;"_s;
        break;
    case U'<':
        spellings << u"&lt;"_s;
        break;
    case U'>':
        spellings << u"&gt;"_s;
        break;
    case U'"':
        spellings << u"\\\\+\""_s << u"&quot;"_s;
        break;
    case U'\'':
        spellings << u"&apos;"_s;
        break;
    case U'/':
        spellings << u"\\\\+/"_s;
        break;
    case U'\\':
        spellings.prepend(u"\\\\{2,}"_s);
        break;
    default:
        break;
    }
    return u"(?:"_s + spellings.join(u'|') + u')';
}

QString base64Pattern(const QString &secret)
{
    const QByteArray utf8 = secret.toUtf8();
    const auto plain = utf8.toBase64(QByteArray::OmitTrailingEquals);
    const auto urlSafe =
        utf8.toBase64(QByteArray::OmitTrailingEquals | QByteArray::Base64UrlEncoding);
    return QRegularExpression::escape(QString::fromLatin1(plain)) + u'|' +
           QRegularExpression::escape(QString::fromLatin1(urlSafe));
}

QString secretPattern(const QString &secret)
{
    QString pattern;
    for (const char32_t character : secret.toUcs4()) {
        pattern += characterPattern(character);
    }
    return pattern + u'|' + base64Pattern(secret);
}

/// All registered secrets and the one expression that finds them, rebuilt when one is added.
struct SecretList
{
    QStringList secrets;
    QRegularExpression expression;

    void add(const QString &secret)
    {
        if (secret.isEmpty() || secrets.contains(secret)) {
            return;
        }
        secrets << secret;
        // Longest first, so that a secret that begins with another one goes as a whole.
        std::stable_sort(secrets.begin(), secrets.end(),
                         [](const QString &a, const QString &b) { return a.size() > b.size(); });
        QStringList patterns;
        for (const QString &each : std::as_const(secrets)) {
            patterns << secretPattern(each);
        }
        expression.setPattern(patterns.join(u'|'));
        expression.optimize();
    }

    qsizetype longest() const { return secrets.isEmpty() ? 0 : secrets.first().toUtf8().size(); }
};

SecretList &secretList()
{
    static SecretList list;
    return list;
}

QByteArray maskedHead(const QByteArray &utf8, qsizetype maxBytes)
{
    const SecretList &list = secretList();
    if (list.secrets.isEmpty()) {
        return utf8.left(maxBytes);
    }
    const qsizetype slack = list.longest() * longestSpellingOfByte;
    const qsizetype end = std::min(maxBytes, utf8.size());
    // One Latin-1 character per byte lets one expression work on bytes of any encoding.
    const QString haystack =
        QString::fromLatin1(utf8.constData(), std::min(utf8.size(), end + slack));
    QByteArray result;
    qsizetype copied = 0;
    auto matches = list.expression.globalMatch(haystack);
    while (matches.hasNext()) {
        const auto match = matches.next();
        if (match.capturedStart() >= end) {
            break;
        }
        result += utf8.mid(copied, match.capturedStart() - copied);
        result += mask;
        copied = match.capturedEnd();
    }
    if (copied < end) {
        result += utf8.mid(copied, end - copied);
    }
    return result;
}

bool namesCredential(const QString &queryKey)
{
    static const QRegularExpression expression(u"pass|pwd|token|secret|key|auth"_s,
                                               QRegularExpression::CaseInsensitiveOption);
    return expression.match(queryKey).hasMatch();
}

} // namespace

void hideFromTrace(const QString &secret)
{
    secretList().add(secret);
}

void hideUrlCredentialsFromTrace(const QString &url)
{
    const QUrl parsed(url, QUrl::TolerantMode);
    hideFromTrace(parsed.password(QUrl::FullyDecoded));
    const auto items = QUrlQuery(parsed).queryItems(QUrl::FullyDecoded);
    for (const auto &[key, value] : items) {
        if (namesCredential(key)) {
            hideFromTrace(value);
        }
    }
    static const QRegularExpression accountPath(
        u"/(?:live|movie|series)/[^/?#]+/([^/?#]+)/[^/?#]+"_s);
    const auto match = accountPath.match(url);
    if (match.hasMatch()) {
        hideFromTrace(QUrl::fromPercentEncoding(match.captured(1).toUtf8()));
    }
}

QString traceSafe(const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    return QString::fromUtf8(maskedHead(utf8, utf8.size()));
}

QString traceSafeHead(const QByteArray &body, qsizetype maxBytes)
{
    return QString::fromUtf8(maskedHead(body, maxBytes));
}
