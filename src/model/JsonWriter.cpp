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

void appendEscaped(JsonText &json, QByteArrayView utf8)
{
    auto rest = utf8.begin();
    while (true) {
        const auto special = std::find_if(rest, utf8.end(), needsEscape);
        json.append(QByteArrayView(rest, special));
        if (special == utf8.end()) {
            return;
        }
        if (*special == '"' || *special == '\\') {
            json.append('\\');
            json.append(*special);
        } else {
            json.append("\\u00"_ba + QByteArray(1, *special).toHex());
        }
        rest = special + 1;
    }
}

} // namespace

void appendJson(JsonText &json, const QString &text)
{
    json.append('"');
    if (text.isValidUtf16() && !text.startsWith(QChar::ByteOrderMark)) {
        appendEscaped(json, text.toUtf8());
    } else {
        // UTF-8 has no lone surrogates, and a byte-order mark would not be read back.
        for (const QChar unit : text) {
            json.append("\\u"_ba + QByteArray::number(unit.unicode(), 16).rightJustified(4, '0'));
        }
    }
    json.append('"');
}

void appendJson(JsonText &json, const CatalogText &text)
{
    if (!text.isUtf8()) {
        appendJson(json, text.toString());
        return;
    }
    json.append('"');
    appendEscaped(json, text.utf8());
    json.append('"');
}

void appendJson(JsonText &json, double number)
{
    json.append(std::isfinite(number)
                    ? QByteArray::number(number, 'g', QLocale::FloatingPointShortest)
                    : "null"_ba);
}

void appendJson(JsonText &json, qint64 number)
{
    json.append(QByteArray::number(number));
}

QByteArray writeJsonMembers(const JsonMembers &members)
{
    // Sections hold tens of megabytes: allocate once and copy each section only once.
    qsizetype size = 2;
    for (const JsonMembers::Member &member : members) {
        constexpr qsizetype roomForKey = 50;
        size += member.json.size() + roomForKey;
    }
    JsonText json(size);
    QByteArrayView separator("{");
    for (const JsonMembers::Member &member : members) {
        json.append(separator);
        separator = QByteArrayView(",");
        appendJson(json, member.key);
        json.append(':');
        json.append(member.json);
    }
    json.append(members.isEmpty() ? QByteArrayView("{}") : QByteArrayView("}"));
    return json.take();
}
