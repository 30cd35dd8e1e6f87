#include "model/CatalogText.h"

#include <QHashFunctions>
#include <QUtf8StringView>

#include <atomic>
#include <cstring>
#include <new>
#include <utility>

/// The head of an allocation; the bytes of the text follow it.
struct CatalogText::Block
{
    std::atomic<quint32> users{1};
    quint32 size : 31;     ///< in bytes
    quint32 holdsUtf8 : 1; ///< otherwise UTF-16 in the byte order of the machine

    char *content() { return reinterpret_cast<char *>(this) + sizeof(Block); }
};

namespace {

bool survivesUtf8(QStringView text)
{
    return text.isValidUtf16() && !text.startsWith(QChar::ByteOrderMark);
}

} // namespace

CatalogText::CatalogText(QByteArrayView content, bool isUtf8)
{
    if (content.isEmpty()) {
        return;
    }
    const auto size = static_cast<size_t>(content.size());
    block = new (::operator new(sizeof(Block) + size)) Block;
    block->size = static_cast<quint32>(size) & 0x7fffffffU;
    block->holdsUtf8 = isUtf8 ? 1U : 0U;
    std::memcpy(block->content(), content.data(), size);
}

CatalogText::CatalogText(const QString &text)
    : CatalogText(survivesUtf8(text)
                      ? CatalogText(text.toUtf8(), true)
                      : CatalogText(QByteArrayView(reinterpret_cast<const char *>(text.utf16()),
                                                   text.size() * qsizetype(sizeof(QChar))),
                                    false))
{}

CatalogText CatalogText::fromUtf8(QByteArrayView utf8)
{
    const bool keepsBytes =
        QUtf8StringView(utf8.data(), utf8.size()).isValidUtf8() && !utf8.startsWith("\xef\xbb\xbf");
    return keepsBytes ? CatalogText(utf8, true) : CatalogText(QString::fromUtf8(utf8));
}

CatalogText::CatalogText(const CatalogText &other) noexcept
    : block(other.block)
{
    if (block != nullptr) {
        block->users.fetch_add(1, std::memory_order_relaxed);
    }
}

CatalogText::CatalogText(CatalogText &&other) noexcept
    : block(std::exchange(other.block, nullptr))
{}

CatalogText &CatalogText::operator=(const CatalogText &other) noexcept
{
    CatalogText copy(other);
    std::swap(block, copy.block);
    return *this;
}

CatalogText &CatalogText::operator=(CatalogText &&other) noexcept
{
    CatalogText taken(std::move(other));
    std::swap(block, taken.block);
    return *this;
}

QString CatalogText::toString() const
{
    if (isEmpty()) {
        return {};
    }
    if (isUtf8()) {
        return QString::fromUtf8(bytes());
    }
    return QString(reinterpret_cast<const QChar *>(bytes().data()),
                   bytes().size() / qsizetype(sizeof(QChar)));
}

bool CatalogText::isUtf8() const
{
    return isEmpty() || block->holdsUtf8 != 0;
}

QByteArrayView CatalogText::bytes() const
{
    return {block->content(), qsizetype(block->size)};
}

void CatalogText::release() noexcept
{
    if (block != nullptr && block->users.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        block->~Block();
        ::operator delete(block);
    }
}

bool operator==(const CatalogText &a, const CatalogText &b)
{
    if (a.block == b.block || a.isEmpty() || b.isEmpty()) {
        return a.block == b.block;
    }
    return a.isUtf8() == b.isUtf8() && a.bytes() == b.bytes();
}

size_t qHash(const CatalogText &text, size_t seed)
{
    return text.isEmpty() ? seed : qHash(text.bytes(), seed);
}
