#include "guide/GuideResult.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

QString guideResultToJson(const GuideResult &result)
{
    QJsonArray addresses;
    for (const GuideAddressResult &one : result.addresses) {
        addresses.append(QJsonObject{{u"address"_s, one.address},
                                     {u"problem"_s, static_cast<int>(one.problem)},
                                     {u"detail"_s, one.detail},
                                     {u"programmes"_s, one.programmes},
                                     {u"unknownZones"_s, one.tookUnknownZones}});
    }
    const QJsonObject object{
        {u"finishedAt"_s, result.finishedAt}, {u"programmes"_s, result.programmes},
        {u"channels"_s, result.channels},     {u"matched"_s, result.matched},
        {u"suggested"_s, result.suggested},   {u"newest"_s, result.newest},
        {u"addresses"_s, addresses},          {u"cancelled"_s, result.cancelled}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

GuideResult guideResultOfJson(const QString &json)
{
    const QJsonObject object = QJsonDocument::fromJson(json.toUtf8()).object();
    GuideResult result;
    result.finishedAt = object.value("finishedAt"_L1).toInteger();
    result.programmes = object.value("programmes"_L1).toInteger();
    result.channels = object.value("channels"_L1).toInteger();
    result.matched = object.value("matched"_L1).toInteger();
    result.suggested = object.value("suggested"_L1).toInteger();
    result.newest = object.value("newest"_L1).toInteger();
    result.cancelled = object.value("cancelled"_L1).toBool();
    const QJsonArray addresses = object.value("addresses"_L1).toArray();
    for (const QJsonValueConstRef value : addresses) {
        GuideAddressResult one;
        one.address = value["address"_L1].toString();
        one.problem = static_cast<GuideProblem>(value["problem"_L1].toInt());
        one.detail = value["detail"_L1].toString();
        one.programmes = value["programmes"_L1].toInteger();
        one.tookUnknownZones = value["unknownZones"_L1].toBool();
        result.addresses.append(one);
    }
    return result;
}
