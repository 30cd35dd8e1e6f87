#include "model/NameFolding.h"

Alphabet appendFolded(QStringView name, std::u16string &out)
{
    Alphabet alphabet = Alphabet::Ascii;
    const char16_t *units = name.utf16();
    for (qsizetype index = 0; index < name.size(); ++index) {
        const char16_t unit = units[index]; // NOLINT: a view has no other raw access
        if (unit < 0x80) {
            out += unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
            continue;
        }
        if (QChar::isSurrogate(unit)) {
            return Alphabet::WithSurrogates;
        }
        alphabet = Alphabet::Plain;
        out += static_cast<char16_t>(QChar::toCaseFolded(static_cast<char32_t>(unit)));
    }
    return alphabet;
}
