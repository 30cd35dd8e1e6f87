#include "providers/BackgroundJobs.h"

BackgroundJobs::BackgroundJobs(QObject *parent, const QString &threadName)
    : QObject(parent)
    , context(new QObject)
{
    thread.setObjectName(threadName);
    context->moveToThread(&thread);
    connect(&thread, &QThread::finished, context, &QObject::deleteLater);
}

BackgroundJobs::~BackgroundJobs()
{
    if (!thread.isRunning()) {
        delete context;
        return;
    }
    // Behind the jobs that wait: what is being saved must not be lost.
    QMetaObject::invokeMethod(
        context, [this] { thread.quit(); }, Qt::QueuedConnection);
    thread.wait();
}

void BackgroundJobs::start(std::function<void()> job)
{
    if (!thread.isRunning()) {
        thread.start();
    }
    QMetaObject::invokeMethod(context, std::move(job), Qt::QueuedConnection);
}

void BackgroundJobs::report(const std::function<void()> &job)
{
    QMetaObject::invokeMethod(this, job, Qt::QueuedConnection);
}
