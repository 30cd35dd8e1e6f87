#include "model/NameFolding.h"

#include <algorithm>
#include <functional>
#include <numeric>

namespace {

bool isAscii(QByteArrayView bytes)
{
    constexpr unsigned char firstOther = 0x80;
    return std::accumulate(bytes.begin(), bytes.end(), 0U, [](unsigned all, char byte) {
               return all | static_cast<unsigned char>(byte);
           }) < firstOther;
}

char foldedAscii(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

} // namespace

Alphabet appendFolded(const CatalogText &name, std::string &out)
{
    if (name.isUtf8() && isAscii(name.utf8())) {
        const QByteArrayView bytes = name.utf8();
        const size_t start = out.size();
        out.resize(start + static_cast<size_t>(bytes.size()));
        std::transform(bytes.begin(), bytes.end(), out.begin() + static_cast<qsizetype>(start),
                       foldedAscii);
        return Alphabet::Ascii;
    }
    QString text = name.toString();
    if (std::any_of(text.cbegin(), text.cend(), [](QChar unit) { return unit.isSurrogate(); })) {
        return Alphabet::WithSurrogates;
    }
    for (QChar &unit : text) {
        unit = unit.toCaseFolded();
    }
    out += text.toUtf8().toStdString();
    return Alphabet::Plain;
}
