#include "guide/ServerZones.h"

#include "guide/CatchUp.h"
#include "providers/XtreamClient.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

void ServerZones::find(const XtreamAccount &account, const Callback &callback)
{
    const QString key = account.server + u'\n' + account.username;
    if (zones.contains(key)) {
        callback(zones.value(key));
        return;
    }
    const bool isAsked = waiting.contains(key);
    waiting[key].append(callback);
    if (!isAsked) {
        ask(key, account);
    }
}

void ServerZones::ask(const QString &key, const XtreamAccount &account)
{
    auto *client = new XtreamClient(this);
    client->configure(account);
    client->get({}, {}, [this, client, key](const QJsonDocument &summary, bool ok) {
        if (ok && summary.object().contains(QLatin1StringView("server_info"))) {
            zones.insert(key, serverZone(summary));
        }
        client->deleteLater();
        answer(key);
    });
    QTimer::singleShot(patienceMs, client, [this, key] { answer(key); });
}

void ServerZones::answer(const QString &key)
{
    const QTimeZone zone = zones.value(key, QTimeZone::utc());
    for (const Callback &callback : waiting.take(key)) {
        callback(zone);
    }
}
