#include "guide/GuideClient.h"

#include "providers/XtreamClient.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView usualFullAction("get_simple_data_table");
/// Some servers know only this one.
constexpr QLatin1StringView misspeltFullAction("get_simple_date_table");

/// Accounts are pasted in percent-encoded form as well.
QString queryValue(const QString &text)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text)).replace("%25"_L1, "%"_L1);
}

QString credentialsQuery(const XtreamAccount &account)
{
    return "?username="_L1 + queryValue(account.username) + "&password="_L1 +
           queryValue(account.password);
}

} // namespace

GuideClient::GuideClient(const XtreamAccount &account, const QTimeZone &serverZone, QObject *parent)
    : QObject(parent)
    , client(new XtreamClient(this))
    , zone(serverZone)
{
    client->configure(account);
}

QString GuideClient::guideUrl(const XtreamAccount &account)
{
    return account.server + "/xmltv.php"_L1 + credentialsQuery(account);
}

QString GuideClient::channelsUrl(const XtreamAccount &account)
{
    return account.server + "/player_api.php"_L1 + credentialsQuery(account) +
           "&action=get_live_streams"_L1;
}

void GuideClient::fetchShort(const QString &streamId, const Callback &callback)
{
    enqueue([this, streamId, callback] { ask(u"get_short_epg"_s, streamId, finishing(callback)); });
}

void GuideClient::fetchFull(const QString &streamId, const Callback &callback)
{
    enqueue([this, streamId, callback] { askFull(streamId, finishing(callback)); });
}

void GuideClient::cancelWaiting()
{
    waiting.clear();
}

void GuideClient::askFull(const QString &streamId, const Callback &take)
{
    if (!fullAction.isEmpty()) {
        ask(fullAction, streamId, take);
        return;
    }
    ask(usualFullAction, streamId, [this, streamId, take](const Schedule &schedule) {
        if (schedule) {
            fullAction = usualFullAction;
            take(schedule);
            return;
        }
        ask(misspeltFullAction, streamId, [this, take](const Schedule &other) {
            if (other) {
                fullAction = misspeltFullAction;
            }
            take(other);
        });
    });
}

void GuideClient::ask(const QString &action, const QString &streamId, const Callback &take)
{
    client->get(action, "stream_id="_L1 + streamId,
                [this, take](const QJsonDocument &reply, bool ok) {
                    take(ok ? readSchedule(reply, zone) : std::nullopt);
                });
}

GuideClient::Callback GuideClient::finishing(const Callback &callback)
{
    return [this, callback](const Schedule &schedule) {
        --underWay;
        sendWaiting(); // first, since the callback may destroy this client
        callback(schedule);
    };
}

void GuideClient::enqueue(const std::function<void()> &request)
{
    waiting.enqueue(request);
    sendWaiting();
}

void GuideClient::sendWaiting()
{
    while (underWay < mostRequests && !waiting.isEmpty()) {
        ++underWay;
        const std::function<void()> request = waiting.dequeue();
        request();
    }
}
