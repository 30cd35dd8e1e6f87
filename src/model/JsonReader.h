#pragma once

#include "model/JsonMembers.h"
#include "model/JsonTable.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <functional>
#include <optional>
#include <tuple>
#include <vector>

/// @file
/// Reads large JSON texts without building a document tree.
///
/// RapidJSON's event reader reads the usual text. What it would read differently from Qt goes to
/// QJsonDocument instead: malformed texts, invalid UTF-8, deep nesting, lone surrogates, numbers
/// outside the range of a double. The results are those of QJsonDocument and QJsonValue in either
/// case.

/// Calls `take` for each element of the root array, in order, with its members of these keys; all
/// fields are absent for an element that is not an object. A root that is not an array has no
/// elements. False when the text is not JSON.
///
/// `restart` is called when reading starts over; what `take` received before is then void, as it is
/// when the result is false.
bool readJsonObjects(const QByteArray &json, const std::vector<QByteArrayView> &keys,
                     const std::function<void()> &restart,
                     const std::function<void(const JsonFields &)> &take);

/// One record per element of the root array: a copy of `initial` with the fields of the table set.
/// Empty when the text is not JSON.
template <typename Table>
QList<JsonRecord<Table>> readJsonRecords(const QByteArray &json, const Table &table,
                                         const JsonRecord<Table> &initial = {})
{
    QList<JsonRecord<Table>> records;
    const auto appendRecord = [&](const JsonFields &fields) {
        setFields(records.emplaceBack(initial), table, fields);
    };
    const bool valid = readJsonObjects(
        json, keysOf(table), [&records] { records.clear(); }, appendRecord);
    return valid ? records : QList<JsonRecord<Table>>();
}

/// Where the members of the root object stand, in the order of the text. Nothing when the text is
/// not JSON, when its root is not an object, or when only Qt can read it.
std::optional<QList<JsonMemberPlace>> findJsonMembers(const QByteArray &json);

/// Takes the elements of one array in the root object: root[member][array].
struct JsonArraySink
{
    QString member;
    QByteArrayView array;
    std::vector<QByteArrayView> keys;
    /// Receives the fields of these keys for each element, as in readJsonObjects().
    std::function<void(const JsonFields &)> take;
};

/// Passes arrays to their sinks in one pass over the text, which is overwritten. The result is that
/// of findJsonMembers(). Nothing also when a member is no object or array, or when a sink's array
/// is something else or stands twice: what the sinks received is then void, and the text must be
/// read member by member.
std::optional<QList<JsonMemberPlace>> readJsonArrays(QByteArray &json,
                                                     const std::vector<JsonArraySink> &sinks);

/// The members of the root object; none when the text is not JSON or its root is not an object.
JsonMembers readJsonMembers(const QByteArray &json);
