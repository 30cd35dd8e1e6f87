#pragma once

#include "model/CatalogText.h"
#include "model/JsonMembers.h"
#include "model/JsonTable.h"
#include "model/JsonText.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// @file
/// Writes records and objects as compact JSON in UTF-8.

/// @name Appending one value
/// Texts get quotes and the escapes that they need; a number that is not finite becomes "null".
/// @{
void appendJson(JsonText &json, const QString &text);
void appendJson(JsonText &json, const CatalogText &text);
void appendJson(JsonText &json, double number);
void appendJson(JsonText &json, qint64 number);
inline void appendJson(JsonText &json, qint32 number)
{
    appendJson(json, qint64(number));
}
/// @}

/// The object with the members in their order.
QByteArray writeJsonMembers(const JsonMembers &members);

/// Whether a field is a text without characters.
template <typename Value>
bool isEmptyText(const Value &value)
{
    if constexpr (requires { value.isEmpty(); }) {
        return value.isEmpty();
    } else {
        return false;
    }
}

/// An array with one object per record, whose members stand in the order of the table.
template <typename Table>
QByteArray writeJsonRecords(const QList<JsonRecord<Table>> &records, const Table &table)
{
    constexpr qsizetype usualSize = 200;
    JsonText json(records.size() * usualSize);
    json.append('[');
    QByteArrayView separator("{");
    for (const JsonRecord<Table> &record : records) {
        json.append(separator);
        separator = QByteArrayView(",{");
        QByteArrayView quote("\"");
        const auto appendMember = [&](const auto &column) {
            if (column.isOptional && isEmptyText(record.*column.field)) {
                return;
            }
            json.append(quote);
            quote = QByteArrayView(",\"");
            json.append(column.key);
            json.append("\":");
            appendJson(json, record.*column.field);
        };
        std::apply([&](const auto &...columns) { (appendMember(columns), ...); }, table);
        json.append('}');
    }
    json.append(']');
    return json.take();
}
