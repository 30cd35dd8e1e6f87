#include "providers/AccountInformation.h"

#include "providers/LenientJson.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

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

/// The texts of an array, of an object's values, or of a text with separators.
QStringList textsOf(const QJsonValue &value)
{
    static const QRegularExpression separators(u"[\\s,;|]+"_s);
    QStringList texts;
    if (value.isString()) {
        texts = value.toString().split(separators);
    } else if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (const QJsonValueConstRef element : object) {
            texts << textOf(element);
        }
    } else {
        const QJsonArray array = value.toArray();
        for (const QJsonValueConstRef element : array) {
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
