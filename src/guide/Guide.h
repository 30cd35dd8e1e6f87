#pragma once

#include "guide/GuideRecords.h"
#include "guide/GuideResult.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>

#include <atomic>
#include <functional>
#include <memory>

class BackgroundJobs;
class GuideReader;

/// The stored guide of one source, to be asked. Entries are named by their catalog ids.
///
/// GUI thread only. A thread reads the file, so that no question waits for the disk: each callback
/// is called once, later, in the order of the questions; never once another guide was opened or
/// this one was closed. An entry that the guide does not know is missing in an answer. All times
/// are seconds since the epoch, with the entry's shift and the source's offset added.
class Guide final : public QObject
{
    Q_OBJECT

public:
    using OnNowCallback = std::function<void(const QHash<QString, OnNow> &)>;
    using SchedulesCallback = std::function<void(const QHash<QString, GuideSchedule> &)>;
    using HitsCallback = std::function<void(const QList<GuideHit> &)>;
    using ResultCallback = std::function<void(const GuideResult &)>;
    using ChannelsCallback = std::function<void(const QList<GuideChannel> &)>;

    /// The file of a source's guide, in the application-data folder.
    static QString filePath(const QString &source);

    explicit Guide(QObject *parent);
    ~Guide() override;
    Q_DISABLE_COPY_MOVE(Guide)

    /// Opens the guide in this file, in place of the one that was open. A file that is missing or
    /// damaged is an empty guide.
    void open(const QString &path, qint64 offsetSeconds);
    void close();
    bool isOpen() const { return reader != nullptr; }
    /// Renames the file of a guide that is closed, behind all questions that were asked; removes it
    /// when `to` is empty. A file at the new path gives way.
    void moveFile(const QString &from, const QString &to);
    /// To be called when the file has changed: reports changed().
    void reload();
    /// What came of the last update.
    void fetchLastResult(const ResultCallback &callback);

    /// What runs at that time, and what follows; with descriptions.
    void fetchOnNow(const QStringList &entryIds, qint64 at, const OnNowCallback &callback);
    /// The programmes that run between the two times; with descriptions.
    void fetchSchedules(const QStringList &entryIds, qint64 from, qint64 to,
                        const SchedulesCallback &callback);
    /// The same without descriptions.
    void fetchTitles(const QStringList &entryIds, qint64 from, qint64 to,
                     const SchedulesCallback &callback);
    /// Programmes that end after that time and whose titles contain words that begin with each word
    /// of the text, in any case; at most so many, the earliest first. A search that is not answered
    /// yet is dropped. No word finds nothing.
    void search(const QString &text, qint64 endsAfter, int most, const HitsCallback &callback);
    /// The channels of the guide whose id or name contains the text, in any case, by name; at most
    /// so many.
    void fetchChannels(const QString &text, int most, const ChannelsCallback &callback);

Q_SIGNALS:
    /// Another guide is open, or none, or its contents have changed.
    void changed();

private:
    void letReaderGo();
    template <typename Question, typename Callback>
    void ask(Question question, const Callback &callback);

    BackgroundJobs *jobs;
    std::shared_ptr<GuideReader> reader; ///< used and destroyed on the thread of the jobs
    quint64 generation = 0;              ///< of the guide that is open
    /// The number of the latest search; read on the thread.
    std::shared_ptr<std::atomic<quint64>> latestSearch;
};
