#include "providers/LenientJson.h"

#include <QVariant>

#include <cmath>

using namespace Qt::StringLiterals;

std::optional<qint64> integerOf(const QJsonValue &value)
{
    if (value.isBool()) {
        return value.toBool() ? 1 : 0;
    }
    bool isNumber = value.isDouble();
    const double number =
        isNumber ? value.toDouble() : value.toString().trimmed().toDouble(&isNumber);
    constexpr double largest = 9e15; // what a double holds exactly
    if (!isNumber || !std::isfinite(number) || std::abs(number) > largest) {
        return std::nullopt;
    }
    return static_cast<qint64>(number);
}

QString textOf(const QJsonValue &value)
{
    return value.toVariant().toString().trimmed();
}

std::optional<bool> flagOf(const QJsonValue &value)
{
    const QString text = textOf(value).toLower();
    if (text == "true"_L1 || text == "yes"_L1) {
        return true;
    }
    if (text == "false"_L1 || text == "no"_L1) {
        return false;
    }
    const std::optional<qint64> number = integerOf(value);
    return number ? std::optional(*number != 0) : std::nullopt;
}
