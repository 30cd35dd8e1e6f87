#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// A part of a text, in bytes.
struct TextRange
{
    qsizetype start = 0;
    qsizetype end = 0;
};

/// Finds one secret in every encoding that a URL, a JSON text or an HTML page can use for it. Each
/// character may be written literally, percent-encoded (also repeatedly), with a JSON escape or as
/// a character reference. Base64 is recognised too, of the secret alone or of a longer text.
class SecretMatcher final
{
public:
    /// The secret has at least two characters.
    explicit SecretMatcher(const QString &secret);

    /// The maximum length of an encoded secret of `bytes` bytes of UTF-8.
    static qsizetype longest(qsizetype bytes);

    /// The occurrences of the secret in a UTF-8 text; for each form, in the order of the text.
    QList<TextRange> find(QByteArrayView utf8) const;

private:
    struct Form
    {
        QList<uint> characters;
        /// Whether a partial Base64 character precedes and follows the form.
        bool partialBefore = false;
        bool partialAfter = false;
    };

    void addBase64(const QByteArray &utf8, qsizetype offset);

    QList<Form> forms;
};
