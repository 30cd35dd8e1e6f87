#include "app/TraceSecrets.h"

#include "app/CredentialPatterns.h"
#include "app/NetLog.h"

#include <QRegularExpression>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

const QByteArray mask = "***"_ba;
// How many bytes after the cut of a body are searched for the rest of a credential.
constexpr qsizetype patternSlack = 1024;

/// A secret, and the number of scopes that hold it.
struct Secret
{
    SecretMatcher matcher;
    int scopes = 0;
};

std::map<QString, Secret> &knownSecrets()
{
    static std::map<QString, Secret> secrets;
    return secrets;
}

/// The positions of secrets in a text, in its order, with overlapping ones merged.
QList<TextRange> findSecrets(const QByteArray &utf8)
{
    // Read as Latin-1, a character is a byte, so that expressions work on any encoding.
    QList<TextRange> found = findCredentialValues(QString::fromLatin1(utf8));
    for (const auto &[text, secret] : knownSecrets()) {
        found += secret.matcher.find(utf8);
    }
    std::sort(found.begin(), found.end(), [](const TextRange &left, const TextRange &right) {
        return left.start < right.start;
    });
    QList<TextRange> merged;
    for (const TextRange &range : std::as_const(found)) {
        if (!merged.isEmpty() && range.start < merged.constLast().end) {
            merged.last().end = std::max(merged.constLast().end, range.end);
        } else {
            merged.append(range);
        }
    }
    return merged;
}

QByteArray redactedHead(const QByteArray &utf8, qsizetype maxBytes)
{
    // A secret that starts before the cut may end after it.
    qsizetype slack = patternSlack;
    for (const auto &[text, secret] : knownSecrets()) {
        slack = std::max(slack, SecretMatcher::longest(text.toUtf8().size()));
    }
    const qsizetype end = std::min(maxBytes, utf8.size());
    QByteArray result;
    qsizetype copied = 0;
    for (const TextRange &range : findSecrets(utf8.left(end + slack))) {
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

} // namespace

/// Registers the secrets for its lifetime.
struct RedactionScope::Registration
{
    explicit Registration(QStringList texts)
        : secrets(std::move(texts))
    {
        for (const QString &text : secrets) {
            ++knownSecrets().try_emplace(text, Secret{SecretMatcher(text)}).first->second.scopes;
        }
    }

    ~Registration()
    {
        for (const QString &text : secrets) {
            const auto known = knownSecrets().find(text);
            if (--known->second.scopes == 0) {
                knownSecrets().erase(known);
            }
        }
    }

    Q_DISABLE_COPY_MOVE(Registration)

private:
    const QStringList secrets;
};

RedactionScope::RedactionScope(const QString &secret, const QString &url)
{
    if (!netDebugEnabled()) {
        return;
    }
    QStringList secrets = urlCredentials(url) << secret;
    secrets.removeIf([](const QString &text) {
        constexpr qsizetype shortestSecret = 4;
        return text.size() < shortestSecret;
    });
    if (!secrets.isEmpty()) {
        registration = std::make_shared<const Registration>(std::move(secrets));
    }
}

QString traceSafe(const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    return QString::fromUtf8(redactedHead(utf8, utf8.size()));
}

QString traceSafeUrl(const QString &url)
{
    // Only live streams have the short form.
    static const QRegularExpression shortForm(
        u"^(\\w+://[^/?#]+/[^/?#]+/)[^/?#]+(/\\d+(?:\\.(?:ts|m3u8))?(?:[?#].*)?)$"_s);
    const RedactionScope ownCredentials({}, url);
    QString redacted = url;
    redacted.replace(shortForm, u"\\1***\\2"_s);
    return traceSafe(redacted);
}

QString traceSafeHead(const QByteArray &body, qsizetype maxBytes)
{
    return QString::fromUtf8(redactedHead(body, maxBytes));
}
