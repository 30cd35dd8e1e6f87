#include "model/JsonWriter.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

bool needsEscape(char byte)
{
    return byte == '"' || byte == '\\' || static_cast<unsigned char>(byte) < 0x20;
}

void appendEscaped(QByteArray &json, QByteArrayView utf8)
{
    auto rest = utf8.begin();
    while (true) {
        const auto special = std::find_if(rest, utf8.end(), needsEscape);
        json.append(QByteArrayView(rest, special));
        if (special == utf8.end()) {
            return;
        }
        if (*special == '"' || *special == '\\') {
            json += '\\';
            json += *special;
        } else {
            json += "\\u00"_ba + QByteArray(1, *special).toHex();
        }
        rest = special + 1;
    }
}

} // namespace

void appendJson(QByteArray &json, const QString &text)
{
    json += '"';
    if (text.isValidUtf16() && !text.startsWith(QChar::ByteOrderMark)) {
        appendEscaped(json, text.toUtf8());
    } else {
        // UTF-8 has no lone surrogates, and a byte-order mark would not be read back.
        for (const QChar unit : text) {
            json += "\\u"_ba + QByteArray::number(unit.unicode(), 16).rightJustified(4, '0');
        }
    }
    json += '"';
}

void appendJson(QByteArray &json, const CatalogText &text)
{
    if (!text.isUtf8()) {
        appendJson(json, text.toString());
        return;
    }
    json += '"';
    appendEscaped(json, text.utf8());
    json += '"';
}

void appendJson(QByteArray &json, double number)
{
    json += std::isfinite(number) ? QByteArray::number(number, 'g', QLocale::FloatingPointShortest)
                                  : "null"_ba;
}

void appendJson(QByteArray &json, qint64 number)
{
    json += QByteArray::number(number);
}

QByteArray writeJsonMembers(const JsonMembers &members)
{
    // Sections hold tens of megabytes: allocate once and copy each section only once.
    qsizetype size = 2;
    for (const JsonMembers::Member &member : members) {
        constexpr qsizetype roomForKey = 50;
        size += member.json.size() + roomForKey;
    }
    QByteArray json;
    json.reserve(size);
    json += '{';
    for (const JsonMembers::Member &member : members) {
        if (json.size() > 1) {
            json += ',';
        }
        appendJson(json, member.key);
        json += ':';
        json += member.json;
    }
    json += '}';
    return json;
}
