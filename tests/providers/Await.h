#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTest>

#include <memory>

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
