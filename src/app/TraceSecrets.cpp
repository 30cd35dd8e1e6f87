#include "app/TraceSecrets.h"

#include <QHash>
#include <QList>
#include <QRegularExpression>
#include <QStringList>
#include <QUrl>
#include <QUrlQuery>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QByteArray mask = "***"_ba;
// The longest spelling of one byte is a percent sign encoded a few times over, or "&#x0000ff;".
constexpr qsizetype longestSpellingOfByte = 16;

/// Spellings that only some characters have: in forms, as HTML names, as short JSON escapes.
QString ownSpelling(char32_t character)
{
    static const QHash<char32_t, QString> spellings = {
        {U' ', u"\\+"_s},     {U'&', u"&amp;"_s},          {U'<', u"&lt;"_s},
        {U'>', u"&gt;"_s},    {U'"', u"\\\\+\"|&quot;"_s}, {U'\'', u"&apos;"_s},
        {U'/', u"\\\\+/"_s},  {U'\\', u"\\\\{2,}"_s},      {U'\n', u"\\\\+n"_s},
        {U'\r', u"\\\\+r"_s}, {U'\t', u"\\\\+t"_s},        {U'\b', u"\\\\+b"_s},
        {U'\f', u"\\\\+f"_s}};
    return spellings.value(character);
}

/// The spellings of one character, as a pattern over UTF-8 bytes read as Latin-1.
QString characterPattern(char32_t character)
{
    const QString text = QString::fromUcs4(&character, 1);
    const QByteArray bytes = text.toUtf8();
    QString percent;
    for (const char byte : bytes) {
        percent += u"%(?:25)*(?i:"_s + QString::fromLatin1(QByteArray(1, byte).toHex()) + u')';
    }
    QString json;
    for (const QChar unit : text) {
        json += u"\\\\+u(?i:%1)"_s.arg(unit.unicode(), 4, 16, QLatin1Char('0'));
    }
    const auto number = static_cast<uint>(character);
    QStringList spellings{percent, json,
                          u"&#(?:0*%1|(?i:x0*%2));"_s.arg(number).arg(number, 0, 16)};
    if (const QString own = ownSpelling(character); !own.isEmpty()) {
        spellings << own;
    }
    // As it is comes last: a percent sign, say, also begins its own encoding.
    spellings << QRegularExpression::escape(QString::fromLatin1(bytes));
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

/// The registered secrets, each with the expression that finds it.
struct SecretList
{
    struct Secret
    {
        QString text;
        QRegularExpression expression;
        bool continues = false; ///< a later piece of a long secret
    };

    QList<Secret> secrets;
    /// In bytes of UTF-8.
    qsizetype longest = 0;

    void add(const QString &text)
    {
        // An expression for very many characters would be too large to compile.
        constexpr qsizetype longestPiece = 64;
        const qsizetype pieces = (text.size() + longestPiece - 1) / longestPiece;
        const qsizetype pieceSize = pieces == 0 ? 0 : (text.size() + pieces - 1) / pieces;
        for (qsizetype start = 0; start < text.size(); start += pieceSize) {
            addPiece(text.mid(start, pieceSize), start > 0);
        }
    }

private:
    void addPiece(const QString &text, bool continues)
    {
        const bool known =
            std::any_of(secrets.cbegin(), secrets.cend(),
                        [&text](const Secret &secret) { return secret.text == text; });
        if (!known) {
            secrets.append({text, QRegularExpression(secretPattern(text)), continues});
            longest = std::max(longest, text.toUtf8().size());
        }
    }
};

SecretList &secretList()
{
    static SecretList list;
    return list;
}

/// Where secrets stand in a text, in its order; those that overlap count as one.
struct Range
{
    qsizetype start = 0;
    qsizetype end = 0;
    bool continues = false;
};

std::vector<Range> findSecrets(const QString &haystack)
{
    std::vector<Range> found;
    for (const SecretList::Secret &secret : std::as_const(secretList().secrets)) {
        auto matches = secret.expression.globalMatch(haystack);
        while (matches.hasNext()) {
            const auto match = matches.next();
            found.push_back({match.capturedStart(), match.capturedEnd(), secret.continues});
        }
    }
    std::sort(found.begin(), found.end(),
              [](const Range &left, const Range &right) { return left.start < right.start; });
    std::vector<Range> merged;
    for (const Range &range : found) {
        const qsizetype reach = merged.empty() ? 0 : merged.back().end;
        if (range.start < reach || (range.continues && range.start == reach && reach > 0)) {
            merged.back().end = std::max(merged.back().end, range.end);
        } else {
            merged.push_back(range);
        }
    }
    return merged;
}

QByteArray maskedHead(const QByteArray &utf8, qsizetype maxBytes)
{
    // A secret that begins before the cut may go on behind it.
    const qsizetype slack = secretList().longest * longestSpellingOfByte;
    const qsizetype end = std::min(maxBytes, utf8.size());
    // One Latin-1 character per byte lets one expression work on bytes of any encoding.
    const QString haystack =
        QString::fromLatin1(utf8.constData(), std::min(utf8.size(), end + slack));
    QByteArray result;
    qsizetype copied = 0;
    for (const Range &range : findSecrets(haystack)) {
        if (range.start >= end) {
            break;
        }
        result += utf8.mid(copied, range.start - copied);
        result += mask;
        copied = range.end;
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
            // Forms write a blank as a plus sign.
            hideFromTrace(QString(value).replace(u'+', u' '));
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

QString traceSafeUrl(const QString &url)
{
    static const QRegularExpression shortForm(
        u"^(\\w+://[^/?#]+/[^/?#]+/)[^/?#]+(/\\d+(?:\\.\\w+)?(?:[?#].*)?)$"_s);
    QString masked = url;
    masked.replace(shortForm, u"\\1***\\2"_s);
    return traceSafe(masked);
}

QString traceSafeHead(const QByteArray &body, qsizetype maxBytes)
{
    return QString::fromUtf8(maskedHead(body, maxBytes));
}
