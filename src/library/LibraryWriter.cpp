#include "library/LibraryWriter.h"

#include <chrono>
#include <utility>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto retryInterval = 1s;

} // namespace

LibraryWriter::LibraryWriter(QString filePath, QObject *parent)
    : QThread(parent)
    , path(std::move(filePath))
{
    setObjectName(u"library"_s);
}

LibraryWriter::~LibraryWriter()
{
    {
        const std::lock_guard lock(mutex);
        stopping = true;
    }
    work.notify_all();
    wait();
    // Tools that do not see what QThread::wait() hands over see the lock.
    const std::lock_guard lock(mutex);
}

void LibraryWriter::beginLoading()
{
    loading = true;
    start();
}

LibraryState LibraryWriter::takeState()
{
    std::unique_lock lock(mutex);
    done.wait(lock, [this] { return !loading; });
    return std::exchange(loadedState, {});
}

void LibraryWriter::write(const LibraryChange &change)
{
    {
        const std::lock_guard lock(mutex);
        queue.append(change);
    }
    work.notify_all();
    if (!isRunning()) {
        start();
    }
}

bool LibraryWriter::writeNow(const LibraryChange &change)
{
    if (!flush()) {
        return false;
    }
    if (!isRunning()) {
        start();
    }
    std::unique_lock lock(mutex);
    urgent = change;
    work.notify_all();
    done.wait(lock, [this] { return !urgent; });
    return urgentWritten;
}

bool LibraryWriter::flush()
{
    std::unique_lock lock(mutex);
    const int failuresBefore = failures;
    // A change that failed before is tried again now.
    work.notify_all();
    done.wait(lock, [&] { return (queue.isEmpty() && !writing) || failures != failuresBefore; });
    return queue.isEmpty() && !writing;
}

// ---- on the thread ----

void LibraryWriter::run()
{
    LibraryStore store(path);
    std::unique_lock lock(mutex);
    if (loading) {
        load(store, lock);
    }
    while (true) {
        work.wait(lock, [this] { return stopping || urgent || !queue.isEmpty(); });
        if (!queue.isEmpty()) {
            writeQueue(store, lock);
        }
        if (urgent) {
            const QList changes{*urgent};
            lock.unlock();
            const auto result = attempt(store, [&] { return store.apply(changes); });
            lock.lock();
            urgentWritten = result == LibraryStore::Result::Done;
            urgent.reset();
            done.notify_all();
        }
        if (stopping && (queue.isEmpty() || failures > 0)) {
            return;
        }
        if (!queue.isEmpty() && failures > 0) {
            work.wait_for(lock, retryInterval);
        }
    }
}

void LibraryWriter::load(LibraryStore &store, std::unique_lock<std::mutex> &lock)
{
    lock.unlock();
    LibraryRows rows;
    attempt(store, [&] { return store.load(rows); });
    LibraryState state(rows);
    lock.lock();
    loadedState = std::move(state);
    loading = false;
    done.notify_all();
    Q_EMIT loaded();
}

void LibraryWriter::writeQueue(LibraryStore &store, std::unique_lock<std::mutex> &lock)
{
    QList<LibraryChange> changes = std::exchange(queue, {});
    writing = true;
    lock.unlock();
    const LibraryStore::Result result = attempt(store, [&] { return store.apply(changes); });
    lock.lock();
    writing = false;
    if (result == LibraryStore::Result::Unavailable) {
        ++failures;
        queue = std::move(changes) + queue;
    } else {
        failures = 0;
    }
    done.notify_all();
}

/// Runs `action` on the store, once more when it met a damaged file, and reports what failed.
LibraryStore::Result LibraryWriter::attempt(LibraryStore &store,
                                            const std::function<LibraryStore::Result()> &action)
{
    using Result = LibraryStore::Result;
    Result result = action();
    if (result == Result::Damaged) {
        QString aside;
        result = store.recover(aside);
        if (!aside.isEmpty()) {
            Q_EMIT setAside(aside);
        }
        if (result == Result::Done) {
            result = action();
        }
    }
    if (result == Result::Newer) {
        Q_EMIT foundNewer();
    } else if (result != Result::Done && !reportedUnavailable) {
        Q_EMIT unavailable(store.errorText());
    }
    reportedUnavailable = result == Result::Unavailable || result == Result::Damaged;
    return reportedUnavailable ? Result::Unavailable : result;
}
