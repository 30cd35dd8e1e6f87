#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// A stretch of a text, in bytes.
struct TextRange
{
    qsizetype start = 0;
    qsizetype end = 0;
};

/// Finds one secret in each spelling that a URL, a JSON text or an HTML page can give it, character
/// by character: as it is, percent-encoded (also several times over), with a JSON escape, as a
/// character reference; and in Base64, alone or as a part of what was encoded.
class SecretSpelling final
{
public:
    explicit SecretSpelling(const QString &secret);

    /// The longest spelling of a secret of `bytes` bytes of UTF-8.
    static qsizetype longest(qsizetype bytes);

    /// Where the secret stands in a text of UTF-8, in the order of the text's bytes per form.
    QList<TextRange> find(QByteArrayView utf8) const;

private:
    struct Form
    {
        QList<uint> characters;
        /// Whether a partial Base64 character stands before and behind.
        bool partialBefore = false;
        bool partialBehind = false;
    };

    void addBase64(const QByteArray &utf8, qsizetype offset);

    QList<Form> forms;
};
