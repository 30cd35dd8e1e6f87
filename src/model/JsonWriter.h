#pragma once

#include "model/CatalogText.h"
#include "model/JsonMembers.h"
#include "model/JsonTable.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// @file
/// Writes records and objects as compact JSON in UTF-8.

/// @name Appending one value
/// Texts get quotes and the escapes that they need; a number that is not finite becomes "null".
/// @{
void appendJson(QByteArray &json, const QString &text);
void appendJson(QByteArray &json, const CatalogText &text);
void appendJson(QByteArray &json, double number);
void appendJson(QByteArray &json, qint64 number);
inline void appendJson(QByteArray &json, qint32 number)
{
    appendJson(json, qint64(number));
}
/// @}

/// The object with the members in their order.
QByteArray writeJsonMembers(const JsonMembers &members);

/// An array with one object per record, whose members stand in the order of the table.
template <typename Table>
QByteArray writeJsonRecords(const QList<JsonRecord<Table>> &records, const Table &table)
{
    constexpr qsizetype usualSize = 200;
    QByteArray json;
    json.reserve(records.size() * usualSize);
    json += '[';
    for (const JsonRecord<Table> &record : records) {
        json += json.size() > 1 ? ",{" : "{";
        bool isFirst = true;
        const auto appendMember = [&](const auto &column) {
            json += isFirst ? "\"" : ",\"";
            isFirst = false;
            json += column.key;
            json += "\":";
            appendJson(json, record.*column.field);
        };
        std::apply([&](const auto &...columns) { (appendMember(columns), ...); }, table);
        json += '}';
    }
    json += ']';
    return json;
}
