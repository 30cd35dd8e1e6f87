#include "guide/XmltvTag.h"

#include <algorithm>
#include <array>

namespace {

bool isBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

} // namespace

bool XmltvTag::isNameStart(char character)
{
    const char lower = static_cast<char>(character | 0x20);
    return (lower >= 'a' && lower <= 'z') || character == '_' || character == ':' ||
           (character & 0x80) != 0;
}

QByteArrayView XmltvTag::nameOf(QByteArrayView tag)
{
    const auto *end = std::find_if(tag.begin(), tag.end(), [](char character) {
        return isBlank(character) || character == '/';
    });
    return tag.first(end - tag.begin());
}

QByteArrayView XmltvTag::attributeOf(QByteArrayView tag, QByteArrayView wanted)
{
    const qsizetype size = tag.size();
    qsizetype at = nameOf(tag).size();
    const auto skipBlanks = [&] {
        while (at < size && isBlank(tag[at])) {
            ++at;
        }
    };
    while (at < size) {
        skipBlanks();
        const qsizetype nameBegin = at;
        while (at < size && tag[at] != '=' && !isBlank(tag[at])) {
            ++at;
        }
        const QByteArrayView name = tag.sliced(nameBegin, at - nameBegin);
        skipBlanks();
        if (at == size || tag[at] != '=') {
            continue;
        }
        ++at;
        skipBlanks();
        const bool quoted = at < size && (tag[at] == '"' || tag[at] == '\'');
        const char quote = quoted ? tag[at++] : ' ';
        const qsizetype begin = at;
        while (at < size && (quoted ? tag[at] != quote : !isBlank(tag[at]))) {
            ++at;
        }
        if (name == wanted) {
            return tag.sliced(begin, at - begin);
        }
        at += quoted ? 1 : 0;
    }
    return {};
}

bool XmltvTag::isOtherChild(QByteArrayView name)
{
    static constexpr std::array children{
        "sub-title",   "credits", "date",  "category",         "keyword",  "language",
        "length",      "icon",    "url",   "country",          "video",    "orig-language",
        "episode-num", "audio",   "new",   "previously-shown", "premiere", "last-chance",
        "subtitles",   "rating",  "image", "star-rating",      "review",
    };
    return std::any_of(children.begin(), children.end(),
                       [name](const char *child) { return name == QByteArrayView(child); });
}
