#pragma once

class QEvent;
class QObject;

/// @file
/// Qt is not built with the thread sanitizer. These tell the sanitizer what it does not see: what a
/// thread did before it emitted a signal, invoked a method or started a job happens before the
/// event that another thread is delivered, and before that job. What Qt does not hand over is
/// watched as before.

extern "C" {
void __tsan_acquire(void *address); // NOLINT(bugprone-reserved-identifier)
void __tsan_release(void *address); // NOLINT(bugprone-reserved-identifier)
}

void releaseHandOver();
void acquireHandOver();

/// An application whose events are hand-overs.
template <typename Application>
class SanitizedApplication final : public Application
{
public:
    using Application::Application;

    /// On the thread of the receiver.
    bool notify(QObject *receiver, QEvent *event) override
    {
        acquireHandOver();
        const bool taken = Application::notify(receiver, event);
        releaseHandOver();
        return taken;
    }
};
