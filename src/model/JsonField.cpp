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
    if (const auto digit = oneDigit()) {
        return *digit;
    }
    return kind == Kind::Number ? numberValue(bytes).toInt() : 0;
}

double JsonField::toDouble() const
{
    return kind == Kind::Number ? toLenientReal() : 0.0;
}

/// The number when it has one digit, as most numbers of a catalog have.
std::optional<int> JsonField::oneDigit() const
{
    const bool isDigit = kind == Kind::Number && bytes.size() == 1;
    return isDigit ? std::optional(bytes.front() - '0') : std::nullopt;
}

qint64 JsonField::toVariantInteger() const
{
    return kind == Kind::True ? 1 : toLenientInteger();
}

qint64 JsonField::toLenientInteger() const
{
    if (const auto digit = oneDigit()) {
        return *digit;
    }
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
    if (const auto digit = oneDigit()) {
        return *digit;
    }
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
