#pragma once

#include "library/LibraryRecords.h"
#include "library/LibraryState.h"
#include "library/LibraryStore.h"

#include <QThread>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>

/// Reads and writes the library's file on a thread of its own. The file is made by the first
/// change.
///
/// A change that cannot be written, for instance since the disk is full, is tried again until it
/// can. All calls are for the thread that made the object.
class LibraryWriter final : public QThread
{
    Q_OBJECT

public:
    LibraryWriter(QString filePath, QObject *parent);
    /// Writes what waits; what cannot be written then is lost.
    ~LibraryWriter() override;
    Q_DISABLE_COPY_MOVE(LibraryWriter)

    /// Begins to read the file. Once, before any change.
    void beginLoading();
    /// Waits for what beginLoading() reads. A file that cannot be read has no rows.
    LibraryState takeState();

    /// Writes a change, in the order of the calls.
    void write(const LibraryChange &change);
    /// Writes a change behind all others and waits for it. When it returns false the file is as it
    /// was, and the change is dropped.
    bool writeNow(const LibraryChange &change);
    /// Waits until all changes are on the disk. False when one could not be written yet.
    bool flush();

Q_SIGNALS:
    /// takeState() no longer waits.
    void loaded();
    /// The file was damaged and stands at `path` now. A new one was begun.
    void setAside(const QString &path);
    /// The file cannot be read or written. Emitted once until it can be again.
    void unavailable(const QString &reason);
    /// A newer version of the program made the file. Nothing is written.
    void foundNewer();

protected:
    void run() override;

private:
    void load(LibraryStore &store, std::unique_lock<std::mutex> &lock);
    void writeQueue(LibraryStore &store, std::unique_lock<std::mutex> &lock);
    LibraryStore::Result attempt(LibraryStore &store,
                                 const std::function<LibraryStore::Result()> &action);

    QString path;

    std::mutex mutex;
    /// Tells the thread of a change or of the end, and the callers of what was done.
    std::condition_variable work;
    std::condition_variable done;

    // Guarded by the mutex.
    bool loading = false;
    LibraryState loadedState;
    QList<LibraryChange> queue;
    std::optional<LibraryChange> urgent; ///< of writeNow()
    bool urgentWritten = false;
    bool writing = false;
    int failures = 0;
    bool stopping = false;

    // The thread's own.
    bool reportedUnavailable = false;
};
