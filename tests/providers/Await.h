#pragma once

#include "fakeprovider/HttpServer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <memory>

/// The names of a request's headers in lower case, sorted. Qt's network stack itself sends
/// "accept-encoding accept-language connection host user-agent".
inline QByteArray headerNames(const HttpRequest &request)
{
    QList<QByteArray> names;
    for (const auto &[name, value] : request.headers) {
        names << name.toLower();
    }
    std::sort(names.begin(), names.end());
    return names.join(' ');
}

/// Runs the event loop until `condition` holds, which is asked after each event and now and then;
/// false after a minute. QTest::qWaitFor() would sleep between the events: what follows an event at
/// once in the program would come later, and a race with another thread would hardly ever be lost.
template <typename Condition>
bool waitUntil(Condition condition)
{
    const QDeadlineTimer limit(60'000);
    QTimer wakeUp;
    wakeUp.start(10);
    while (!condition() && !limit.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

/// What a completion callback was called with, and how often.
template <typename Value>
struct Answer
{
    int calls = 0;
    Value value{};
};

/// Calls `start` with a callback that takes a Value, waits for the answer, and then lets whatever
/// is still queued happen, so that a second call is counted as well.
template <typename Value, typename Start>
Answer<Value> await(Start start)
{
    const auto answer = std::make_shared<Answer<Value>>();
    start([answer](const Value &value) {
        ++answer->calls;
        answer->value = value;
    });
    if (answer->calls > 0) {
        answer->calls += 1000; // a callback comes later, never from within the call
    }
    (void)waitUntil([&answer] { return answer->calls > 0; });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    return *answer;
}
