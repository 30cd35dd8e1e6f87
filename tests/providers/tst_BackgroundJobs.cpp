#include "providers/BackgroundJobs.h"
#include "support/TestMain.h"

#include <QList>
#include <QSemaphore>
#include <QTest>

#include <atomic>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype small = 1000;
constexpr qsizetype large = 1000000;

} // namespace

class tst_BackgroundJobs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { jobs = std::make_unique<BackgroundJobs>(nullptr); }
    void cleanup() { jobs.reset(); }
    void aSmallJobRunsWithinTheCall();
    void aLargeJobRunsOnAnotherThread();
    void resultsComeInTheOrderOfTheCalls();
    void waitingJobsRunBeforeTheEnd();

private:
    std::unique_ptr<BackgroundJobs> jobs;
};

void tst_BackgroundJobs::aSmallJobRunsWithinTheCall()
{
    int result = 0;
    jobs->run(
        small, [] { return 7; }, [&](int value) { result = value; });
    QCOMPARE(result, 7);
}

void tst_BackgroundJobs::aLargeJobRunsOnAnotherThread()
{
    QSemaphore begin;
    QThread *worker = nullptr;
    const auto work = [&] {
        begin.acquire();
        return QThread::currentThread();
    };
    jobs->run(large, work, [&](QThread *used) {
        QCOMPARE(QThread::currentThread(), thread());
        worker = used;
    });
    QVERIFY(worker == nullptr);
    begin.release(); // the call did not wait for it
    QTRY_VERIFY(worker != nullptr);
    QVERIFY(worker != QThread::currentThread());
}

void tst_BackgroundJobs::resultsComeInTheOrderOfTheCalls()
{
    QSemaphore begin;
    QList<int> results;
    const auto take = [&](int value) {
        results << value;
        if (value == 1) { // one more, while others wait
            jobs->run(
                small, [] { return 4; }, [&](int last) { results << last; });
        }
    };
    const auto first = [&] {
        begin.acquire();
        return 1;
    };
    jobs->run(large, first, take);
    jobs->run(
        small, [] { return 2; }, take);
    jobs->run(
        large, [] { return 3; }, take);
    QVERIFY(results.isEmpty());
    begin.release();
    QTRY_COMPARE(results, QList<int>({1, 2, 3, 4}));
}

void tst_BackgroundJobs::waitingJobsRunBeforeTheEnd()
{
    std::atomic<int> run = 0;
    int reported = 0;
    QSemaphore begin;
    const auto work = [&] {
        begin.acquire();
        return ++run;
    };
    for (int count = 0; count < 3; ++count) {
        jobs->run(large, work, [&](int) { ++reported; });
    }
    begin.release(3);
    jobs.reset();
    QCOMPARE(run.load(), 3);
    QCoreApplication::processEvents();
    QCOMPARE(reported, 0);
}

VANTIRO_TEST_GUILESS_MAIN(tst_BackgroundJobs)
#include "tst_BackgroundJobs.moc"
