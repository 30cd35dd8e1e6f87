#include "app/CredentialPatterns.h"

#include <QRegularExpression>
#include <QSet>
#include <QUrl>
#include <QUrlQuery>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// An expression whose group "value" is a credential, if its group "name" names one.
struct Pattern
{
    QRegularExpression expression;
    bool isNamed = true;
};

QRegularExpression expression(const QString &pattern)
{
    return QRegularExpression(pattern, QRegularExpression::DotMatchesEverythingOption);
}

/// Matches the password segment of an account path. `slash` and `segment` differ between a URL of
/// its own and one inside a text.
QString accountPathPattern(const QString &slash, const QString &segment)
{
    // Folders of images or HLS streams, and playlist files, are not accounts.
    const QString entry = u"(?!\\d+\\.(?:jpe?g|png|webp|gif|svg)\\b)"
                          "(?!(?:index|master|playlist|manifest|chunk\\w*|media)\\b)"_s +
                          segment;
    return slash + u"(?|(?:live|movie|series|timeshift)"_s + slash + segment + slash +
           u"(?<value>"_s + segment + u")(?="_s + slash + entry + u")|playlist"_s + slash +
           segment + slash + u"(?![^/\\s]*\\.m3u8?\\b)(?<value>"_s + segment + u"))"_s;
}

const QList<Pattern> &patterns()
{
    const QString name = u"(?<name>[\\w.\\-]{1,64})"_s;
    const QString doubleQuoted = u"\"(?<value>(?:[^\"\\\\]|\\\\.)+)"_s;
    const QString singleQuoted = u"'(?<value>(?:[^'\\\\]|\\\\.)+)"_s;
    const QString bare = u"(?<value>[^\\s\"'\\\\,;\\[\\]{}]+)"_s;
    const QString assign = u"\\s*(?::|=>?)\\s*\\[?\\s*"_s;
    static const QList<Pattern> all{
        // A member of a JSON text, also of a malformed one.
        {expression(u"(?<!\\\\)([\"'])"_s + name + u"\\1"_s + assign + u"(?|"_s + doubleQuoted +
                    u'|' + singleQuoted + u'|' + bare + u')')},
        {expression(u"(?<![\\w.\\-\"'\\\\?&])"_s + name + assign + u"(?|"_s + doubleQuoted + u'|' +
                    singleQuoted + u')')},
        // A member of a JSON text inside a JSON text. A quote after more backslashes belongs to it.
        {expression(u"(\\\\+)\""_s + name + u"\\1\""_s + assign +
                    u"(?|\\1\"(?<value>(?:[^\"\\\\]|\\\\+(?![\"\\\\])|\\1\\\\+\")+)|"_s + bare +
                    u')')},
        // An item of a query or a form, also in a percent-encoded URL.
        {expression(u"(?<![\\w.\\-])"_s + name +
                    u"=(?<value>(?:[^&#\\s\"<>\\\\]|\\\\+(?![\"\\\\]))+)"_s)},
        {expression(u"%(?:25)*(?:3[Ff]|26)"_s + name +
                    u"%(?:25)*3[Dd](?<value>(?:(?!%(?:25)*26)[^&#\\s\"<>\\\\])+)"_s)},
        {expression(u"<"_s + name + u"(?:\\s[^<>]*)?>(?<value>[^<]+)"_s)},
        {expression(u":\\\\*/\\\\*/[^\\s/?#:@\"\\\\]*:(?<value>[^\\s/?#\"\\\\]+)@"_s), false},
        {expression(accountPathPattern(u"\\\\*/"_s, u"[^/?#\\s\"<>\\\\]+"_s)), false}};
    return all;
}

/// Whether the value of a member is not secret: a literal, or the flag of a login.
bool isHarmless(const QString &name, const QString &value)
{
    static const QRegularExpression literal(u"^(?:true|false|null)$"_s);
    static const QRegularExpression number(u"^-?[\\d.]+$"_s);
    return literal.match(value).hasMatch() || (name == "auth"_L1 && number.match(value).hasMatch());
}

/// The words of a name: "accessToken", "access_token" and "ACCESS-TOKEN" have two.
QStringList wordsOf(const QString &name)
{
    static const QRegularExpression word(u"[A-Z]+(?![a-z])|[A-Z]?[a-z]+"_s);
    QStringList words;
    auto matches = word.globalMatch(name);
    while (matches.hasNext()) {
        words << matches.next().captured().toLower();
    }
    return words;
}

void addIfAny(QStringList &found, const QString &value)
{
    if (!value.isEmpty()) {
        found << value;
    }
}

} // namespace

bool namesCredential(const QString &name)
{
    // Single words, and compounds that are usually written as one word.
    static const QSet<QString> credentialWords{
        u"pass"_s,      u"password"_s,    u"passwd"_s,    u"pwd"_s,     u"token"_s,
        u"secret"_s,    u"key"_s,         u"auth"_s,      u"apikey"_s,  u"authkey"_s,
        u"authtoken"_s, u"accesstoken"_s, u"accesskey"_s, u"userpass"_s};
    const QStringList words = wordsOf(name);
    return std::any_of(words.cbegin(), words.cend(),
                       [](const QString &word) { return credentialWords.contains(word); });
}

QList<TextRange> findCredentialValues(const QString &latin1)
{
    QList<TextRange> found;
    for (const Pattern &pattern : patterns()) {
        auto match = pattern.expression.match(latin1);
        while (match.hasMatch()) {
            const TextRange value{match.capturedStart(u"value"_s), match.capturedEnd(u"value"_s)};
            bool isCredential = true;
            if (pattern.isNamed) {
                const QString name = match.captured(u"name"_s);
                const QChar before = latin1.at(value.start - 1);
                const bool isBareMember = before == u':' || before.isSpace();
                isCredential = namesCredential(name) &&
                               !(isBareMember && isHarmless(name, match.captured(u"value"_s)));
            }
            if (isCredential) {
                found.append(value);
            }
            // A harmless value may itself contain items: "url=http://h/?key=1".
            match = pattern.expression.match(latin1, isCredential ? value.end : value.start);
        }
    }
    return found;
}

QStringList urlCredentials(const QString &url)
{
    QStringList found;
    const QUrl parsed(url, QUrl::TolerantMode);
    addIfAny(found, parsed.password(QUrl::FullyDecoded));
    const auto items = QUrlQuery(parsed).queryItems(QUrl::FullyDecoded);
    for (const auto &[name, value] : items) {
        if (namesCredential(name)) {
            addIfAny(found, value);
            // Forms encode a space as a plus sign.
            addIfAny(found, QString(value).replace(u'+', u' '));
        }
    }
    static const QRegularExpression accountPath(accountPathPattern(u"/"_s, u"[^/?#]+"_s));
    addIfAny(found,
             QUrl::fromPercentEncoding(accountPath.match(url).captured(u"value"_s).toUtf8()));
    found.removeDuplicates();
    return found;
}
