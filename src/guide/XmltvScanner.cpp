#include "guide/XmltvScanner.h"

#include "guide/XmltvTag.h"
#include "guide/XmltvText.h"

#include <algorithm>
#include <cstring>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Markup that ends at a mark of its own. What is longer is taken for text, so that a mark that is
/// missing does not hide the rest of the document.
struct Delimited
{
    QByteArrayView begin;
    QByteArrayView end;
    qsizetype longest;
};

enum
{
    Comment,
    CharacterData,
    Declaration
};

constexpr std::array delimited{
    Delimited{"<!--", "-->", XmltvScanner::longestElement},
    Delimited{"<![CDATA[", "]]>", XmltvScanner::longestElement},
    Delimited{"<?", "?>", 4096},
};

} // namespace

XmltvScanner::XmltvScanner(XmltvHandler &receiver, QString language)
    : handler(receiver)
    , preferredLanguage(std::move(language))
{}

// ---- bytes ----

void XmltvScanner::add(QByteArrayView bytes)
{
    if (encodingDecided) {
        addDecoded(bytes);
    } else {
        head.append(bytes);
        decideEncoding(false);
    }
    scan(false);
}

void XmltvScanner::finish()
{
    decideEncoding(true);
    scan(true);
}

void XmltvScanner::decideEncoding(bool atEnd)
{
    if (encodingDecided || (head.size() < 2 && !atEnd)) {
        return;
    }
    encodingDecided = true;
    const QByteArray bytes = std::exchange(head, {});
    const bool littleEndian = bytes.startsWith("\xff\xfe");
    if (littleEndian || bytes.startsWith("\xfe\xff")) {
        fromUtf16.emplace(littleEndian ? QStringConverter::Utf16LE : QStringConverter::Utf16BE);
        toUtf8.emplace(QStringConverter::Utf8);
    }
    addDecoded(bytes);
}

void XmltvScanner::addDecoded(QByteArrayView bytes)
{
    if (fromUtf16) {
        const QString text = fromUtf16->decode(bytes);
        pending += toUtf8->encode(text);
    } else {
        pending += bytes;
    }
}

/// Takes what is complete from `pending`; at the end, everything.
void XmltvScanner::scan(bool atEnd)
{
    qsizetype at = 0;
    while (at < pending.size()) {
        qsizetype next = 0;
        if (pending.at(at) == '<') {
            next = takeMarkup(at, atEnd);
            if (next == incomplete) {
                break;
            }
        } else {
            next = endOfText(at);
            count(next - at);
            addText(QByteArrayView(pending).sliced(at, next - at));
        }
        at = next;
    }
    pending.remove(0, at);
    for (qsizetype &place : searchedTo) {
        place = std::max<qsizetype>(0, place - at);
    }
}

qsizetype XmltvScanner::endOfText(qsizetype from) const
{
    const char *begin = pending.constData();
    const void *found =
        std::memchr(begin + from, '<', static_cast<std::size_t>(pending.size() - from));
    return found ? static_cast<const char *>(found) - begin : pending.size();
}

/// Takes the markup that begins at `from`; a "<" that begins none is text. What stands behind it,
/// or `incomplete`.
qsizetype XmltvScanner::takeMarkup(qsizetype from, bool atEnd)
{
    int delimiter = delimiters;
    bool valid = true;
    const qsizetype end = endOfMarkup(from, delimiter, valid);
    if (end == incomplete && valid && !atEnd) {
        return incomplete;
    }
    if (end == incomplete || !valid) {
        count(1);
        addText("<");
        return from + 1;
    }
    const QByteArrayView markup = QByteArrayView(pending).sliced(from, end - from);
    count(markup.size());
    if (delimiter < delimiters) {
        const Delimited &kind = delimited[static_cast<std::size_t>(delimiter)];
        takeDelimited(delimiter, markup.sliced(kind.begin.size()).chopped(kind.end.size()));
    } else {
        // A tag without its ">" ends before the next one.
        takeTag(markup.sliced(1).chopped(markup.back() == '>' ? 1 : 0));
    }
    return end;
}

/// What stands behind the markup that begins at `from`, or `incomplete`. Not `valid` when it cannot
/// be markup, whatever follows.
qsizetype XmltvScanner::endOfMarkup(qsizetype from, int &delimiter, bool &valid)
{
    const QByteArrayView ahead = QByteArrayView(pending).sliced(from);
    for (int index = 0; index < delimiters; ++index) {
        const Delimited &kind = delimited[static_cast<std::size_t>(index)];
        if (ahead.startsWith(kind.begin)) {
            delimiter = index;
            qsizetype &searched = searchedTo[static_cast<std::size_t>(index)];
            const qsizetype first =
                std::max(from + kind.begin.size(), searched - (kind.end.size() - 1));
            const qsizetype found = QByteArrayView(pending).indexOf(kind.end, first);
            searched = std::max(searched, found < 0 ? pending.size() : found);
            const qsizetype end = found < 0 ? pending.size() : found + kind.end.size();
            valid = end - from <= kind.longest;
            return found < 0 ? incomplete : end;
        }
        if (kind.begin.startsWith(ahead)) {
            return incomplete;
        }
    }
    const char second = ahead[1];
    valid = second == '/' || second == '!' || XmltvTag::isNameStart(second);
    char quote = 0;
    qsizetype end = 1;
    for (; valid && end < ahead.size() && ahead[end] != '<'; ++end) {
        const char character = ahead[end];
        if (quote != 0) {
            quote = character == quote ? char(0) : quote;
        } else if (character == '>') {
            break;
        } else if ((character == '"' || character == '\'') && second != '/') {
            quote = character;
        }
    }
    valid = valid && end < longestElement;
    if (end == ahead.size()) {
        return incomplete;
    }
    return from + end + (ahead[end] == '>' ? 1 : 0);
}

/// Counts the bytes of the open element.
void XmltvScanner::count(qsizetype bytes)
{
    if (element != Element::None) {
        elementBytes += bytes;
        if (elementBytes > longestElement) {
            drop();
        }
    }
}

// ---- markup ----

void XmltvScanner::takeDelimited(int delimiter, QByteArrayView content)
{
    if (delimiter == Declaration) {
        takeDeclaration(content);
    } else if (delimiter == CharacterData && field != Field::None) {
        // It holds no entities.
        addText(content.toByteArray().replace("&", "&amp;"));
    }
}

/// Notes the encoding of a document's texts. What marks itself as UTF-16 is decoded already.
void XmltvScanner::takeDeclaration(QByteArrayView declaration)
{
    if (XmltvTag::nameOf(declaration) != "xml" || fromUtf16) {
        return;
    }
    fromDeclared.reset();
    const QByteArray name = XmltvTag::attributeOf(declaration, "encoding").toByteArray();
    const auto known = QStringConverter::encodingForName(name.constData());
    // The markup is read as bytes, so that the name of another form of Unicode must be wrong.
    if (known == QStringConverter::Latin1) {
        fromDeclared.emplace(QStringConverter::Latin1);
    } else if (!known && !name.isEmpty() && !name.toUpper().startsWith("U")) {
        QStringDecoder decoder(name.constData());
        if (decoder.isValid()) {
            fromDeclared = std::move(decoder);
        }
    }
}

void XmltvScanner::takeTag(QByteArrayView tag)
{
    if (tag.startsWith('/')) {
        endTag(XmltvTag::nameOf(tag.sliced(1)));
        return;
    }
    const bool isEmptyElement = tag.endsWith('/');
    const QByteArrayView name = XmltvTag::nameOf(tag);
    beginTag(name, isEmptyElement ? tag.chopped(1) : tag);
    if (isEmptyElement) {
        endTag(name);
    }
}

void XmltvScanner::beginTag(QByteArrayView name, QByteArrayView tag)
{
    if (name == "programme") {
        beginProgramme(tag);
    } else if (name == "channel") {
        beginChannel(tag);
    } else if (name.compare("tv", Qt::CaseInsensitive) == 0) {
        endElement();
        rootSeen = true;
        rootClosed = false;
    } else if (element == Element::Programme && name == "title") {
        beginField(Field::Title, tag);
    } else if (element == Element::Programme && name == "desc") {
        beginField(Field::Description, tag);
    } else if (element == Element::Channel && name == "display-name") {
        beginField(Field::Name, tag);
    } else if (XmltvTag::isOtherChild(name)) {
        endField();
    }
}

void XmltvScanner::endTag(QByteArrayView name)
{
    if (name == "programme" || name == "channel") {
        endElement();
    } else if (name.compare("tv", Qt::CaseInsensitive) == 0) {
        endElement();
        rootClosed = rootSeen;
    } else if (name == "title" || name == "desc" || name == "display-name" ||
               XmltvTag::isOtherChild(name)) {
        endField();
    }
}

// ---- elements ----

void XmltvScanner::beginChannel(QByteArrayView tag)
{
    endElement();
    rootClosed = false;
    openChannel = {};
    openChannel.id = decoded(XmltvTag::attributeOf(tag, "id")).simplified();
    if (openChannel.id.isEmpty()) {
        ++dropped;
        return;
    }
    element = Element::Channel;
    elementBytes = tag.size();
}

void XmltvScanner::beginProgramme(QByteArrayView tag)
{
    endElement();
    rootClosed = false;
    openProgramme = {};
    openProgramme.channel = decoded(XmltvTag::attributeOf(tag, "channel")).simplified();
    const std::optional<qint64> start = timeOf(XmltvTag::attributeOf(tag, "start"));
    if (openProgramme.channel.isEmpty() || !start) {
        ++dropped;
        return;
    }
    openProgramme.start = *start;
    const qint64 stop = timeOf(XmltvTag::attributeOf(tag, "stop")).value_or(0);
    openProgramme.stop = stop > *start ? stop : 0;
    if (!handler.wantsProgramme(openProgramme.channel, *start)) {
        return;
    }
    title = {};
    description = {};
    element = Element::Programme;
    elementBytes = tag.size();
}

void XmltvScanner::beginField(Field which, QByteArrayView tag)
{
    endField();
    field = which;
    fieldPreferred = !preferredLanguage.isEmpty() &&
                     decoded(XmltvTag::attributeOf(tag, "lang")).startsWith(preferredLanguage);
}

void XmltvScanner::addText(QByteArrayView bytes)
{
    if (field != Field::None) {
        fieldBytes += bytes;
    }
}

void XmltvScanner::endField()
{
    const Field which = std::exchange(field, Field::None);
    if (which == Field::None) {
        return;
    }
    const QString text = decoded(fieldBytes);
    fieldBytes.resize(0);
    if (which == Field::Name) {
        const QString name = XmltvText::cut(text.simplified(), longestTitle);
        if (!name.isEmpty()) {
            openChannel.names << name;
        }
        return;
    }
    FieldText &kept = which == Field::Title ? title : description;
    const QString tidy =
        which == Field::Title
            ? XmltvText::cut(text.simplified(), longestTitle)
            : XmltvText::cut(XmltvText::withUnixLineEnds(text.trimmed()), longestDescription);
    if (!tidy.isEmpty() && (kept.text.isEmpty() || (fieldPreferred && !kept.preferred))) {
        kept = {tidy, fieldPreferred};
    }
}

/// Reports the open element. One that lacks its end tag is as good as any other.
void XmltvScanner::endElement()
{
    endField();
    switch (std::exchange(element, Element::None)) {
    case Element::None:
        break;
    case Element::Channel:
        handler.channel(openChannel);
        break;
    case Element::Programme:
        openProgramme.title = title.text;
        openProgramme.description = description.text;
        handler.programme(openProgramme);
        break;
    }
}

void XmltvScanner::drop()
{
    element = Element::None;
    field = Field::None;
    fieldBytes.clear();
    ++dropped;
}

QString XmltvScanner::decoded(QByteArrayView bytes)
{
    if (!fromDeclared) {
        return XmltvText::expanded(QString::fromUtf8(bytes));
    }
    fromDeclared->resetState();
    const QString text = fromDeclared->decode(bytes);
    return XmltvText::expanded(text);
}

std::optional<qint64> XmltvScanner::timeOf(QByteArrayView text)
{
    const std::optional<XmltvTime> time = readXmltvTime(text);
    if (!time) {
        return {};
    }
    unknownZone = unknownZone || time->zoneUnknown;
    return time->seconds;
}
