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
template <typename Record, typename Value>
struct JsonColumn
{
    using Conversion = Value (JsonField::*)() const;

    constexpr JsonColumn(QByteArrayView memberKey, Value Record::*recordField,
                         Conversion conversion)
        : key(memberKey)
        , field(recordField)
        , convert(conversion)
    {}

    QByteArrayView key;
    Value Record::*field;
    Conversion convert;
};

template <typename Record, typename... Values>
using JsonTable = std::tuple<JsonColumn<Record, Values>...>;

/// The keys of a table in the order of its columns.
template <typename Record, typename... Values>
std::vector<QByteArrayView> keysOf(const JsonTable<Record, Values...> &table)
{
    return std::apply([](const auto &...columns) { return std::vector{columns.key...}; }, table);
}
