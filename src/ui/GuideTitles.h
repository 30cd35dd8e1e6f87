#pragma once

#include "guide/GuideRecords.h"

#include <QCache>
#include <QObject>
#include <QString>
#include <QStringList>

class Guide;

/// The titles of a guide that a grid shows. It asks the guide for what is wanted and not here, for
/// many entries at once, and keeps a bounded part of it.
///
/// Asked and kept are blocks of some hours of one entry. There is one round of questions at a time:
/// while it is under way the wanted entries may change as often as they like, and the next round
/// asks for those that are wanted then.
class GuideTitles final : public QObject
{
    Q_OBJECT

public:
    explicit GuideTitles(QObject *parent);

    /// Not owned: it must outlive this, or be replaced; null for none. Forgets everything.
    void setGuide(Guide *guide);

    /// These entries show from now on, between these times in seconds since the epoch.
    void want(const QStringList &entryIds, qint64 from, qint64 to);

    /// What is here of an entry's programmes around these times. An entry that the guide does not
    /// know has none.
    GuideSchedule schedule(const QString &entryId, qint64 from, qint64 to) const;
    /// Whether the guide has answered for all of these times.
    bool isHere(const QString &entryId, qint64 from, qint64 to) const;

    /// How many seconds the archives of the entries that were asked for reach back, at most.
    qint64 archiveReach() const { return reach; }
    /// When the guide's last programme starts, in seconds since the epoch; 0 while it is not known.
    qint64 newest() const { return newestStart; }

Q_SIGNALS:
    /// More is known now.
    void arrived();
    /// schedule() tells nothing now: what was here is out of date.
    void cleared();

private:
    struct Block
    {
        QString entryId;
        qint64 number = 0;

        friend bool operator==(const Block &, const Block &) = default;
        friend size_t qHash(const Block &block, size_t seed)
        {
            return qHashMulti(seed, block.entryId, block.number);
        }
    };

    void startOver();
    void askForNewest();
    void ask();
    void ask(const QStringList &entryIds, qint64 number);
    void keep(const QStringList &entryIds, qint64 number,
              const QHash<QString, GuideSchedule> &answer);

    Guide *guide = nullptr;
    QCache<Block, GuideSchedule> blocks;
    QStringList wantedIds;
    qint64 wantedFrom = 0;
    qint64 wantedTo = 0;
    qint64 reach = 0;
    qint64 newestStart = 0;
    int underWay = 0;   ///< questions that are not answered
    int generation = 0; ///< of the guide's contents: other answers are out of date
};
