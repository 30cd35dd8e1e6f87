#include "support/QtHandOver.h"

#include <QMetaObject>
#include <QThread>
#include <QThreadPool>

#include <dlfcn.h>

#include <functional>
#include <memory>
#include <utility>

// The linker prefers these definitions to those of Qt's library, which they call.

namespace {

/// What the sanitizer knows all hand-overs by.
char handOver;

template <typename Function>
Function original(const char *mangledName)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, mangledName));
}

} // namespace

void releaseHandOver()
{
    __tsan_release(&handOver);
}

void acquireHandOver()
{
    __tsan_acquire(&handOver);
}

bool QMetaObject::invokeMethodImpl(QObject *object, QtPrivate::QSlotObjectBase *slot,
                                   Qt::ConnectionType type, void *result)
{
    using Function = bool (*)(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *);
    static const auto next = original<Function>("_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtP"
                                                "rivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv");
    releaseHandOver();
    return next(object, slot, type, result);
}

void QMetaObject::activate(QObject *sender, const QMetaObject *type, int signal, void **arguments)
{
    using Function = void (*)(QObject *, const QMetaObject *, int, void **);
    static const auto next = original<Function>("_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    releaseHandOver();
    next(sender, type, signal, arguments);
}

void QThreadPool::start(std::function<void()> job, int priority)
{
    using Function = void (*)(QThreadPool *, std::function<void()>, int);
    static const auto next = original<Function>("_ZN11QThreadPool5startESt8functionIFvvEEi");
    // What the job holds is destroyed before the release.
    std::function<void()> synchronized =
        [held = std::make_shared<std::function<void()>>(std::move(job))] {
            acquireHandOver();
            (*held)();
            *held = nullptr;
            releaseHandOver();
        };
    // Behind the release nothing may be written that the other thread reads.
    releaseHandOver();
    next(this, std::move(synchronized), priority);
}

bool QThreadPool::waitForDone(int ms)
{
    using Function = bool (*)(QThreadPool *, int);
    static const auto next = original<Function>("_ZN11QThreadPool11waitForDoneEi");
    const bool ended = next(this, ms);
    acquireHandOver();
    return ended;
}

bool QThread::wait(QDeadlineTimer deadline)
{
    using Function = bool (*)(QThread *, QDeadlineTimer);
    static const auto next = original<Function>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool ended = next(this, deadline);
    acquireHandOver();
    return ended;
}
