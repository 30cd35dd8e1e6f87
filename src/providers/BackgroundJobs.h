#pragma once

#include <QObject>
#include <QString>
#include <QThread>

#include <functional>
#include <utility>

/// Runs jobs one after the other on a thread of its own, so that the thread that gives them stays
/// free for its event loop. Jobs are given and reported on the thread that made the object.
class BackgroundJobs final : public QObject
{
    Q_OBJECT

public:
    /// `threadName` is what a debugger shows.
    explicit BackgroundJobs(QObject *parent, const QString &threadName = QStringLiteral("catalog"));
    /// Waits until all jobs that were given have run. Their results are not reported any more.
    ~BackgroundJobs() override;
    Q_DISABLE_COPY_MOVE(BackgroundJobs)

    /// Runs `work`, then `done` with its result. The results are reported in the order of the
    /// calls. A job that handles few `bytes` runs within the call, unless others wait: the other
    /// thread would not be faster.
    template <typename Work, typename Done>
    void run(qsizetype bytes, Work work, Done done)
    {
        if (waiting == 0 && bytes < worthAThread) {
            done(work());
            return;
        }
        runApart(std::move(work), std::move(done));
    }

    /// As run(), but never within the call.
    template <typename Work, typename Done>
    void runApart(Work work, Done done)
    {
        ++waiting;
        start([this, work = std::move(work), done = std::move(done)]() mutable {
            auto result = work();
            report([this, done, result = std::move(result)] {
                --waiting;
                done(result);
            });
        });
    }

private:
    static constexpr qsizetype worthAThread = 256LL * 1024;

    void start(std::function<void()> job);
    void report(const std::function<void()> &job);

    QThread thread;
    QObject *context; ///< lives on the thread
    int waiting = 0;  ///< jobs whose results are not reported yet
};
