#pragma once

#include "providers/XtreamAccount.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimeZone>

#include <functional>

/// The time zones of the servers of accounts. Each is asked for once, and kept. GUI thread only.
class ServerZones final : public QObject
{
    Q_OBJECT

public:
    using Callback = std::function<void(const QTimeZone &)>;
    /// Nobody waits longer for an answer.
    static constexpr int patienceMs = 8000;

    using QObject::QObject;

    /// Calls back once: at once when the zone is known, otherwise when the server has answered.
    /// UTC when it does not, and then it is asked again next time. Never once this is destroyed.
    void find(const XtreamAccount &account, const Callback &callback);

private:
    void ask(const QString &key, const XtreamAccount &account);
    void answer(const QString &key);

    QHash<QString, QTimeZone> zones; ///< by server and user name
    QHash<QString, QList<Callback>> waiting;
};
