#include "guide/Guide.h"

#include "guide/GuideReader.h"
#include "model/SafeFileName.h"
#include "providers/BackgroundJobs.h"

#include <QFile>
#include <QStandardPaths>

#include <utility>

using namespace Qt::StringLiterals;

QString Guide::filePath(const QString &source)
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/guides/"_L1 +
           safeFileName(source) + ".sqlite"_L1;
}

Guide::Guide(QObject *parent)
    : QObject(parent)
    , jobs(new BackgroundJobs(this, u"guide"_s))
    , latestSearch(std::make_shared<std::atomic<quint64>>(0))
{}

Guide::~Guide()
{
    letReaderGo();
}

/// Its connection ends on the thread that began it.
void Guide::letReaderGo()
{
    if (reader) {
        jobs->runApart(
            [last = std::exchange(reader, nullptr)]() mutable { return last.reset(), 0; },
            [](int) {});
    }
}

void Guide::open(const QString &path, qint64 offsetSeconds)
{
    close();
    reader = std::make_shared<GuideReader>(path, offsetSeconds);
    Q_EMIT changed();
}

void Guide::close()
{
    ++generation;
    ++*latestSearch;
    if (!reader) {
        return;
    }
    letReaderGo();
    Q_EMIT changed();
}

void Guide::moveFile(const QString &from, const QString &to)
{
    jobs->runApart(
        [from, to] {
            for (const QString &suffix : {u"-wal"_s, u"-shm"_s, QString()}) {
                if (from != to && !to.isEmpty()) {
                    QFile::remove(to + suffix);
                    QFile::rename(from + suffix, to + suffix);
                }
                if (to.isEmpty()) {
                    QFile::remove(from + suffix);
                }
            }
            return 0;
        },
        [](int) {});
}

void Guide::reload()
{
    if (reader) {
        Q_EMIT changed();
    }
}

/// Runs a question on the thread. Its answer counts while the same guide is open.
template <typename Question, typename Callback>
void Guide::ask(Question question, const Callback &callback)
{
    if (!reader) {
        return;
    }
    jobs->runApart(
        [reader = reader, question]() mutable {
            auto answer = question(*reader);
            // The last one to hold it may be this job.
            reader.reset();
            return answer;
        },
        [this, callback, asked = generation](const auto &answer) {
            if (asked == generation) {
                callback(answer);
            }
        });
}

void Guide::fetchLastResult(const ResultCallback &callback)
{
    ask([](GuideReader &from) { return from.lastResult(); }, callback);
}

void Guide::fetchOnNow(const QStringList &entryIds, qint64 at, const OnNowCallback &callback)
{
    ask([=](GuideReader &from) { return from.onNow(entryIds, at); }, callback);
}

void Guide::fetchSchedules(const QStringList &entryIds, qint64 from, qint64 to,
                           const SchedulesCallback &callback)
{
    ask([=](GuideReader &source) { return source.schedules(entryIds, from, to, true); }, callback);
}

void Guide::fetchTitles(const QStringList &entryIds, qint64 from, qint64 to,
                        const SchedulesCallback &callback)
{
    ask([=](GuideReader &source) { return source.schedules(entryIds, from, to, false); }, callback);
}

void Guide::search(const QString &text, qint64 endsAfter, int most, const HitsCallback &callback)
{
    const quint64 number = ++*latestSearch;
    ask(
        [=, latest = latestSearch](GuideReader &from) {
            return *latest == number ? from.search(text, endsAfter, most) : QList<GuideHit>();
        },
        [this, callback, number](const QList<GuideHit> &hits) {
            if (*latestSearch == number) {
                callback(hits);
            }
        });
}

void Guide::fetchChannels(const QString &text, int most, const ChannelsCallback &callback)
{
    ask([=](GuideReader &from) { return from.channels(text, most); }, callback);
}
