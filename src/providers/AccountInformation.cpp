#include "providers/AccountInformation.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// The integer of a number, a flag, or a text with a number.
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

/// The text of a text or a number, without white space around it.
QString textOf(const QJsonValue &value)
{
    return value.toVariant().toString().trimmed();
}

/// Seconds since the epoch; none for what does not expire. Some servers write the time as a text.
std::optional<qint64> expiryOf(const QJsonValue &value)
{
    std::optional<qint64> seconds = integerOf(value);
    const QDateTime time = QDateTime::fromString(textOf(value), Qt::ISODate);
    if (!seconds && time.isValid()) {
        seconds = time.toSecsSinceEpoch();
    }
    return seconds && *seconds > 0 ? seconds : std::nullopt;
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

/// The texts of an array, of an object's values, or of a text with separators.
QStringList textsOf(const QJsonValue &value)
{
    static const QRegularExpression separators(u"[\\s,;|]+"_s);
    QStringList texts;
    if (value.isString()) {
        texts = value.toString().split(separators);
    } else if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (const QJsonValue &element : object) {
            texts << textOf(element);
        }
    } else {
        const QJsonArray array = value.toArray();
        for (const QJsonValue &element : array) {
            texts << textOf(element);
        }
    }
    texts.removeAll(QString());
    return texts;
}

} // namespace

std::optional<AccountInformation> readAccountInformation(const QJsonDocument &reply)
{
    const QJsonObject user = reply.object().value("user_info"_L1).toObject();
    // Some servers leave the flag out of a good answer.
    if (user.isEmpty() || flagOf(user.value("auth"_L1)) == false) {
        return std::nullopt;
    }
    AccountInformation information;
    information.status = textOf(user.value("status"_L1));
    information.expiresAt = expiryOf(user.value("exp_date"_L1));
    information.isTrial = flagOf(user.value("is_trial"_L1));
    information.connectionsInUse = integerOf(user.value("active_cons"_L1));
    information.connectionsAllowed = integerOf(user.value("max_connections"_L1));
    information.formats = textsOf(user.value("allowed_output_formats"_L1));
    const QJsonObject server = reply.object().value("server_info"_L1).toObject();
    information.timeZone = textOf(server.value("timezone"_L1));
    return information;
}
