#pragma once

#include "model/CatalogText.h"

#include <QByteArrayView>
#include <QString>

#include <optional>
#include <vector>

/// The value of one member of a flat JSON object, with the conversions that catalogs need. Valid
/// only during the callback that receives it.
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
    /// The text if Qt decoded it; `bytes` are then empty.
    QString decoded;

    /// @name Conversions of QJsonValue: a value of another type gives an empty text or 0.
    /// @{
    QString toText() const;
    CatalogText toCatalogText() const;
    int toInt() const;
    double toDouble() const;
    /// @}

    /// The integer that QVariant converts the value to: of a number, a decimal text, or 1 for true.
    qint64 toVariantInteger() const;

    /// @name Lenient conversions: of a number, or of a text with a number; 0 for anything else.
    /// @{
    qint64 toLenientInteger() const;
    /// 0 also for a number that is not finite.
    double toLenientReal() const;
    /// The decimal text of toLenientInteger().
    QString toIntegerText() const;
    /// @}

private:
    std::optional<int> oneDigit() const;
};

/// One field per requested key of an object, in the order of the keys. Of duplicate members the
/// last one counts.
using JsonFields = std::vector<JsonField>;
