#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <functional>
#include <vector>

/// @file
/// Reads large JSON texts of many small objects without building a document tree.
///
/// Clean texts are read by RapidJSON's event reader. What is odd (not UTF-8, nested deeper than any
/// catalog, with lone surrogates or numbers that no double holds, malformed) goes to QJsonDocument,
/// so that Qt alone decides what such a text means. Results are those of QJsonDocument and
/// QJsonValue in either case.

/// One member of a flat object, as far as a catalog needs it. Valid during the callback only.
struct JsonField
{
    enum class Kind : quint8
    {
        Absent,
        Text,
        Number,
        True,
        Other ///< false, null, an array or an object
    };

    Kind kind = Kind::Absent;
    /// The text's UTF-8 without quotes and escapes, or the number as it is written.
    QByteArrayView bytes;
    /// The text, where UTF-8 cannot hold it.
    QString oddText;

    /// What QJsonValue::toString() gives: empty unless it is a text.
    QString toText() const;
    /// What QJsonValue::toInt() gives: 0 unless it is a number that is an int.
    int toInt() const;
    /// The integer of a number or of a decimal text as a QVariant converts it, otherwise 0.
    qint64 toInteger() const;
    /// The integer of any value as a QVariant converts it: that of toInteger(), but 1 for true.
    qint64 toVariantInteger() const;
    /// The real number of a number or of a numeric text as a QVariant converts it; 0 otherwise, and
    /// for what is not finite.
    double toReal() const;
};

/// One field per wanted key of an object, in the order of the keys. A member that comes twice
/// counts as it comes last.
using JsonFields = std::vector<JsonField>;

/// Calls `take` for each element of the root array, in order; all fields are absent for an element
/// that is no object. False when the text is not JSON; `take` may have been called before that was
/// seen, after `restart`. A root that is no array has no elements. `restart` is called before
/// reading begins anew.
bool readJsonObjects(const QByteArray &json, const QList<QByteArray> &keys,
                     const std::function<void()> &restart,
                     const std::function<void(const JsonFields &)> &take);

/// The elements of the root array, each through `convert`; empty when the text is not JSON.
template <typename Record>
QList<Record> readJsonRecords(const QByteArray &json, const QList<QByteArray> &keys,
                              Record (*convert)(const JsonFields &))
{
    QList<Record> records;
    const bool valid = readJsonObjects(
        json, keys, [&records] { records.clear(); },
        [&records, convert](const JsonFields &fields) { records.append(convert(fields)); });
    return valid ? records : QList<Record>();
}
