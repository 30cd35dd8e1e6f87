#include "guide/XmltvText.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The longest that is expanded is "&#x10FFFF;"; zeros may stand before the number.
constexpr qsizetype longestEntity = 32;

bool isControl(char32_t code)
{
    return code < 0x20 && code != '\t' && code != '\n' && code != '\r';
}

/// The character of "#38" or "#x26"; 0 for what is none.
char32_t numberedCharacter(QStringView name)
{
    bool valid = false;
    const bool hex = name.startsWith("#x"_L1);
    const QStringView digits = name.sliced(hex ? 2 : 1);
    // A sign is no digit.
    if (digits.isEmpty() || !digits.front().isLetterOrNumber()) {
        return 0;
    }
    const uint code = digits.toUInt(&valid, hex ? 16 : 10);
    const bool isCharacter =
        valid && !isControl(code) && !QChar::isSurrogate(code) && code <= QChar::LastValidCodePoint;
    return isCharacter ? char32_t(code) : 0;
}

/// The character that stands between "&" and ";"; 0 for what is unknown.
char32_t characterOf(QStringView name)
{
    static constexpr std::array named{
        std::pair{"amp"_L1, U'&'},  std::pair{"lt"_L1, U'<'},    std::pair{"gt"_L1, U'>'},
        std::pair{"quot"_L1, U'"'}, std::pair{"apos"_L1, U'\''},
    };
    if (name.startsWith(u'#')) {
        return numberedCharacter(name);
    }
    const auto *found = std::find_if(named.begin(), named.end(),
                                     [name](const auto &entity) { return name == entity.first; });
    return found == named.end() ? 0 : found->second;
}

} // namespace

QString XmltvText::expanded(const QString &text)
{
    const auto needsWork = [](QChar unit) { return unit == u'&' || isControl(unit.unicode()); };
    if (std::none_of(text.begin(), text.end(), needsWork)) {
        return text;
    }
    QString result;
    result.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar unit = text.at(at);
        if (unit == u'&') {
            const QStringView ahead = QStringView(text).sliced(at + 1).left(longestEntity);
            const qsizetype end = ahead.indexOf(u';');
            const char32_t code = end < 0 ? 0 : characterOf(ahead.first(end));
            if (code != 0) {
                result += QStringView(QChar::fromUcs4(code));
                at += end + 1;
                continue;
            }
        }
        if (!isControl(unit.unicode())) {
            result += unit;
        }
    }
    return result;
}

QString XmltvText::withUnixLineEnds(QString text)
{
    if (text.contains(u'\r')) {
        text.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
    }
    return text;
}

QString XmltvText::cut(const QString &text, qsizetype length)
{
    if (text.size() <= length) {
        return text;
    }
    return text.first(text.at(length - 1).isHighSurrogate() ? length - 1 : length);
}
