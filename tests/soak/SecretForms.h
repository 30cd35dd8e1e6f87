#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// Finds secrets in a program's output: as they are, percent-encoded and Base64-encoded, alone or
/// within a longer text.
class SecretForms
{
public:
    explicit SecretForms(const QList<QByteArray> &secrets)
    {
        for (const QByteArray &secret : secrets) {
            forms << secret.toLower() << secret.toPercentEncoding().toLower()
                  << everyByteEncoded(secret);
            for (const int before : {0, 1, 2})
                forms << base64Within(secret, before).toLower();
        }
    }

    /// The first line that holds one of them, in whatever case; an empty text when none does.
    QByteArray lineIn(const QByteArray &output) const
    {
        const QByteArray searched = output.toLower();
        for (const QByteArray &form : forms) {
            const qsizetype at = searched.indexOf(form);
            if (at >= 0) {
                const qsizetype start = output.lastIndexOf('\n', at) + 1;
                const qsizetype end = output.indexOf('\n', at);
                return output.sliced(start, (end < 0 ? output.size() : end) - start);
            }
        }
        return {};
    }

private:
    static QByteArray everyByteEncoded(const QByteArray &secret)
    {
        QByteArray out;
        for (const char byte : secret)
            out += '%' + QByteArray(1, byte).toHex();
        return out;
    }

    /// What is the same in the Base64 form of every text that has so many bytes (modulo three) in
    /// front of the secret.
    static QByteArray base64Within(const QByteArray &secret, int before)
    {
        const QByteArray padded = QByteArray(before, 'x') + secret;
        const qsizetype wholeGroups = padded.size() / 3;
        const QByteArray encoded = padded.left(wholeGroups * 3).toBase64();
        return encoded.sliced(before == 0 ? 0 : 4);
    }

    QList<QByteArray> forms;
};
