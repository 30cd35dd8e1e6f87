// A registered secret in a traced text, each character encoded in any way that a URL, a JSON text
// or a page knows, or in Base64: what is traced shows it in no encoding.

#include "FuzzTarget.h"
#include "SecretEncoding.h"

#include "app/TraceSecrets.h"

using namespace Qt::StringLiterals;

namespace {

const QByteArray mask = "***"_ba;

/// A text with the secret, and where it stands. In Base64 that is the whole text.
struct Planted
{
    QByteArray text;
    qsizetype start = 0;
    qsizetype end = 0;
    bool isBase64 = false;
};

/// Without what the mask has, what stands for malformed UTF-8, and what no reference spells.
QString secretFrom(const QByteArray &utf8)
{
    return QString::fromUtf8(utf8).remove(u'*').remove(QChar::ReplacementCharacter).remove(QChar());
}

Planted plant(const QString &secret, FuzzInput &input)
{
    const QByteArray before = input.takeUntil('\n');
    const QByteArray behind = input.takeUntil('\n');
    if (input.below(8) == 0) {
        const QByteArray whole = before + secret.toUtf8() + behind;
        const auto options =
            input.below(2) == 0 ? QByteArray::Base64Encoding : QByteArray::Base64UrlEncoding;
        const QByteArray text = whole.toBase64(options);
        return {text, 0, text.size(), true};
    }
    const QByteArray encoded = encodeSecret(secret, input);
    return {before + encoded + behind, before.size(), before.size() + encoded.size(), false};
}

} // namespace

void fuzz(FuzzInput &input)
{
    constexpr qsizetype shortestSecret = 4;
    const QString secret = secretFrom(input.takeUntil('\n'));
    if (secret.size() < shortestSecret) {
        return;
    }
    const RedactionScope scope(secret);
    const int mode = input.below(3);
    const int cut = input.below(256);
    const Planted planted = plant(secret, input);

    QByteArray traced;
    switch (mode) {
    case 0:
        traced = traceSafe(QString::fromUtf8(planted.text)).toUtf8();
        break;
    case 1:
        traced = traceSafeUrl(QString::fromUtf8(planted.text)).toUtf8();
        break;
    default:
        traced = traceSafeHead(planted.text, cut).toUtf8();
        require(planted.isBase64 || planted.start >= cut || planted.end <= cut ||
                    traced.endsWith(mask),
                "a secret on the cut is masked");
        break;
    }
    require(!showsSecret(traced, secret), "a trace shows the secret in no encoding");
}
