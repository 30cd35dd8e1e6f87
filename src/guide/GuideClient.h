#pragma once

#include "guide/AccountSchedule.h"
#include "providers/XtreamAccount.h"

#include <QList>
#include <QObject>
#include <QQueue>
#include <QString>
#include <QTimeZone>

#include <functional>
#include <optional>

class XtreamClient;

/// Asks an account's server for the schedules of single channels. The whole guide as one file is
/// kinder to a server; this is for the few channels that are seen.
///
/// GUI thread only. At most `mostRequests` are under way, the others wait in their order. Each
/// callback is called exactly once, later, with nothing when the request failed or the reply was no
/// schedule; never once its request was cancelled or the client is destroyed.
class GuideClient final : public QObject
{
    Q_OBJECT

public:
    using Schedule = std::optional<QList<ScheduledProgramme>>;
    using Callback = std::function<void(const Schedule &)>;
    static constexpr int mostRequests = 3;

    /// `serverZone` is that of serverZone().
    GuideClient(const XtreamAccount &account, const QTimeZone &serverZone, QObject *parent);

    /// The programme that runs and the next ones, mostly four in all.
    void fetchShort(const QString &streamId, const Callback &callback);
    /// All that the server has, past programmes included.
    void fetchFull(const QString &streamId, const Callback &callback);
    /// Drops what was not sent yet.
    void cancelWaiting();
    /// Where the whole guide is, as an XMLTV file. It holds the account's credentials.
    static QString guideUrl(const XtreamAccount &account);
    /// Where the account's live channels are listed. It holds the account's credentials.
    static QString channelsUrl(const XtreamAccount &account);

private:
    void ask(const QString &action, const QString &streamId, const Callback &take);
    void askFull(const QString &streamId, const Callback &take);
    void enqueue(const std::function<void()> &request);
    void sendWaiting();
    /// Hands over a schedule and makes room for the next request.
    Callback finishing(const Callback &callback);

    XtreamClient *client;
    QTimeZone zone;
    QQueue<std::function<void()>> waiting;
    int underWay = 0;
    /// By which of its names the server knows the full schedule; empty until one worked.
    QString fullAction;
};
