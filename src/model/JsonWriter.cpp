#include "model/JsonWriter.h"

#include <QLocale>

#include <cmath>

using namespace Qt::StringLiterals;

void appendJson(QByteArray &json, QStringView text)
{
    json += '"';
    if (text.isValidUtf16() && !text.startsWith(QChar::ByteOrderMark)) {
        const QByteArray utf8 = text.toUtf8();
        for (const char byte : utf8) {
            if (byte == '"' || byte == '\\') {
                json += '\\';
                json += byte;
            } else if (static_cast<unsigned char>(byte) < 0x20) {
                json += "\\u00"_ba + QByteArray(1, byte).toHex();
            } else {
                json += byte;
            }
        }
    } else {
        // UTF-8 has no lone surrogates, and a byte-order mark would not be read back.
        for (const QChar unit : text) {
            json += "\\u"_ba + QByteArray::number(unit.unicode(), 16).rightJustified(4, '0');
        }
    }
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
