#include "guide/LooseName.h"

#include <QSet>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isRaised(QChar character)
{
    return character.decompositionTag() == QChar::Super;
}

/// The name without runs of raised letters, which mark the quality. A raised digit alone belongs to
/// the name.
QString withoutRaisedLetters(const QString &name)
{
    QString kept;
    for (qsizetype start = 0; start < name.size();) {
        qsizetype end = start;
        bool hasLetter = false;
        while (end < name.size() && isRaised(name.at(end))) {
            hasLetter = hasLetter || name.at(end).isLetter();
            ++end;
        }
        if (end == start) {
            ++end;
        }
        if (hasLetter) {
            kept += u' ';
        } else {
            kept += QStringView(name).sliced(start, end - start);
        }
        start = end;
    }
    return kept;
}

QChar closingBracket(QChar opening)
{
    switch (opening.unicode()) {
    case u'(':
        return u')';
    case u'[':
        return u']';
    case u'{':
        return u'}';
    default:
        return {};
    }
}

/// Whether the sign there stands between a mark of a country and the name.
bool isPrefixEnd(const QString &name, qsizetype at)
{
    const QChar sign = name.at(at);
    if (sign == u'-') { // but not within a name, as in "EM-TV"
        return at + 1 < name.size() && name.at(at + 1).isSpace();
    }
    return u":|_>\u00bb\u203a\u2022\u00b7\u2502\u2503\u258e\u258f\u2758\u2605"_s.contains(sign);
}

/// Takes a mark like "DE: " or "DE | " off the beginning; its country.
QString takePrefix(QString &name)
{
    QString country = countryOf(name.left(2));
    qsizetype at = 2;
    while (at < name.size() && name.at(at).isSpace()) {
        ++at;
    }
    if (country.isEmpty() || at >= name.size() || !name.at(0).isUpper() || !name.at(1).isUpper() ||
        !isPrefixEnd(name, at)) {
        return {};
    }
    name.remove(0, at + 1);
    return country;
}

/// Takes everything in brackets out of the name; the country of the first that is one.
QString takeBrackets(QString &name)
{
    QString country;
    for (qsizetype start = 0; start < name.size(); ++start) {
        const bool isBar = start == 0 && name.at(start) == u'|'; // "|DE| News"
        const QChar closing = isBar ? QChar(u'|') : closingBracket(name.at(start));
        const qsizetype end = closing.isNull() ? -1 : name.indexOf(closing, start + 1);
        if (end < 0) {
            continue;
        }
        if (country.isEmpty()) {
            country = countryOf(name.sliced(start + 1, end - start - 1).trimmed());
        }
        name.replace(start, end - start + 1, u' ');
    }
    return country;
}

bool isAccent(QChar character)
{
    constexpr char16_t first = 0x300;
    constexpr char16_t last = 0x36f;
    return character.unicode() >= first && character.unicode() <= last;
}

/// The words of a name. A plus sign belongs to them: it tells "News" from "News +1".
QStringList wordsOf(const QString &name)
{
    QStringList words{QString()};
    const QString plain = name.normalized(QString::NormalizationForm_KD).toCaseFolded();
    for (const QChar character : plain) {
        if (isAccent(character)) {
            continue;
        }
        // Marks are parts of letters in many scripts.
        if (character.isLetterOrNumber() || character.isMark() || character.isSurrogate() ||
            character == u'+') {
            words.last() += character;
        } else if (!words.last().isEmpty()) {
            words << QString();
        }
    }
    return words;
}

bool isQualityMark(const QString &word)
{
    static const QSet<QString> marks{
        u"hd"_s,    u"fhd"_s,   u"uhd"_s,  u"qhd"_s,   u"sd"_s,    u"4k"_s,    u"8k"_s,
        u"hq"_s,    u"lq"_s,    u"raw"_s,  u"hevc"_s,  u"h264"_s,  u"h265"_s,  u"hdr"_s,
        u"2160p"_s, u"1080p"_s, u"720p"_s, u"1080i"_s, u"50fps"_s, u"60fps"_s,
    };
    return marks.contains(word);
}

} // namespace

QString countryOf(const QString &mark)
{
    const QString letters = mark.toLower();
    const bool isMark = letters.size() == 2 &&
                        std::all_of(letters.cbegin(), letters.cend(),
                                    [](QChar letter) { return letter >= u'a' && letter <= u'z'; });
    if (!isMark || isQualityMark(letters) || letters == "tv"_L1) {
        return {};
    }
    return letters == "gb"_L1 ? u"uk"_s : letters;
}

LooseName looseName(const QString &name)
{
    LooseName loose;
    QString rest = withoutRaisedLetters(name).trimmed();
    loose.country = takePrefix(rest);
    const QString inBrackets = takeBrackets(rest);
    if (loose.country.isEmpty()) {
        loose.country = inBrackets;
    }
    QStringList words = wordsOf(rest);
    words.removeIf(isQualityMark);
    loose.text = words.join(QString());
    return loose;
}
