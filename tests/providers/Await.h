#pragma once

#include "fakeprovider/HttpServer.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTest>

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
    (void)QTest::qWaitFor([&answer] { return answer->calls > 0; }, 20'000);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    return *answer;
}
