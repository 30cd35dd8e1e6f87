#include "model/JsonField.h"

#include <QJsonValue>
#include <QVariant>

#include <cmath>

namespace {

/// The number as QJsonValue holds it, for conversions that only Qt defines.
QJsonValue numberValue(QByteArrayView number)
{
    bool isInteger = false;
    const qint64 integer = number.toLongLong(&isInteger);
    return isInteger ? QJsonValue(integer) : QJsonValue(number.toDouble());
}

} // namespace

QString JsonField::toText() const
{
    if (kind != Kind::Text) {
        return {};
    }
    return decoded.isEmpty() ? QString::fromUtf8(bytes) : decoded;
}

CatalogText JsonField::toCatalogText() const
{
    if (kind != Kind::Text) {
        return {};
    }
    return decoded.isEmpty() ? CatalogText::fromUtf8(bytes) : CatalogText(decoded);
}

int JsonField::toInt() const
{
    return kind == Kind::Number ? numberValue(bytes).toInt() : 0;
}

double JsonField::toDouble() const
{
    return kind == Kind::Number ? toLenientReal() : 0.0;
}

qint64 JsonField::toVariantInteger() const
{
    return kind == Kind::True ? 1 : toLenientInteger();
}

qint64 JsonField::toLenientInteger() const
{
    switch (kind) {
    case Kind::Number:
        return numberValue(bytes).toVariant().toLongLong();
    case Kind::Text:
        return QVariant(toText()).toLongLong();
    default:
        return 0;
    }
}

double JsonField::toLenientReal() const
{
    double number = 0.0;
    if (kind == Kind::Number) {
        number = bytes.toDouble();
        if (number == 0.0) {
            number = 0.0; // QJsonValue has no minus zero
        }
    } else if (kind == Kind::Text) {
        number = QVariant(toText()).toDouble();
    }
    return std::isfinite(number) ? number : 0.0;
}

QString JsonField::toIntegerText() const
{
    return QString::number(toLenientInteger());
}
