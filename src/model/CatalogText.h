#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// A text of a catalog record. It takes the place of a QString where hundreds of thousands of texts
/// are held: it has the size of a pointer, keeps the text as UTF-8 in one allocation, and decodes
/// it on demand. It holds every text that a QString holds.
///
/// Copies share the allocation, which never changes. For any thread; one object for one thread at a
/// time. A moved-from text is empty.
class CatalogText final
{
public:
    CatalogText() = default;
    CatalogText(const QString &text);
    /// The text that QString::fromUtf8() decodes.
    static CatalogText fromUtf8(QByteArrayView utf8);

    CatalogText(const CatalogText &other) noexcept;
    CatalogText(CatalogText &&other) noexcept;
    CatalogText &operator=(const CatalogText &other) noexcept;
    CatalogText &operator=(CatalogText &&other) noexcept;
    ~CatalogText() { release(); }

    bool isEmpty() const { return block == nullptr; }
    QString toString() const;
    operator QString() const { return toString(); }

    /// Whether utf8() gives the text. It does not for a text with lone surrogates, which UTF-8
    /// cannot represent, or with a leading byte-order mark, which decoding would drop.
    bool isUtf8() const;
    /// The text as UTF-8, valid as long as this object. Only when isUtf8() holds.
    QByteArrayView utf8() const { return isEmpty() ? QByteArrayView() : bytes(); }

    friend bool operator==(const CatalogText &a, const CatalogText &b);
    friend bool operator==(const CatalogText &a, const QString &b) { return a == CatalogText(b); }
    friend size_t qHash(const CatalogText &text, size_t seed);

private:
    struct Block;

    CatalogText(QByteArrayView content, bool isUtf8);
    QByteArrayView bytes() const;
    void release() noexcept;

    Block *block = nullptr; ///< null when empty
};

Q_DECLARE_TYPEINFO(CatalogText, Q_RELOCATABLE_TYPE);
