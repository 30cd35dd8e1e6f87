#pragma once

#include "model/JsonField.h"

#include <QByteArrayView>

#include <tuple>
#include <vector>

/// @file
/// Tables that tie the keys of a JSON object to the fields of a record: one table per record and
/// format serves reading (JsonReader.h) and writing (JsonWriter.h).
///
///     constexpr std::tuple categoryTable{
///         JsonColumn{"id", &Category::id, &JsonField::toText},
///         JsonColumn{"name", &Category::name, &JsonField::toText},
///     };

/// One key, the field of the record, and the conversion by which the field is read.
template <typename RecordType, typename Value, typename Converted>
struct JsonColumn
{
    using Record = RecordType;
    using Conversion = Converted (JsonField::*)() const;

    constexpr JsonColumn(QByteArrayView memberKey, Value Record::*recordField,
                         Conversion conversion, bool leftOutIfEmpty = false)
        : key(memberKey)
        , field(recordField)
        , convert(conversion)
        , isOptional(leftOutIfEmpty)
    {}

    QByteArrayView key;
    Value Record::*field;
    Conversion convert;
    bool isOptional; ///< not written while the field is empty; never the first column
};

/// The record that a table describes.
template <typename Table>
using JsonRecord = typename std::tuple_element_t<0, Table>::Record;

/// The keys of a table in the order of its columns.
template <typename Table>
std::vector<QByteArrayView> keysOf(const Table &table)
{
    return std::apply([](const auto &...columns) { return std::vector{columns.key...}; }, table);
}

/// Sets the fields of a record that the table names from the values of its keys, in their order.
template <typename Table>
void setFields(JsonRecord<Table> &record, const Table &table, const JsonFields &values)
{
    auto value = values.begin();
    const auto set = [&](const auto &column) {
        record.*column.field = ((*value++).*column.convert)();
    };
    std::apply([&](const auto &...columns) { (set(columns), ...); }, table);
}
