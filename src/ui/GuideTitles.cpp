#include "ui/GuideTitles.h"

#include "guide/CatchUp.h"
#include "guide/Guide.h"

#include <QPointer>

#include <algorithm>

namespace {

constexpr qint64 blockSeconds = 6LL * 3600;
/// Some screens of channels: what is scrolled back to is here still.
constexpr int mostBlocks = 4000;
/// Whatever a source says of its archive.
constexpr qint64 longestReach = qint64(60) * 24 * 3600;

/// Times before the epoch do not occur.
qint64 blockOf(qint64 time)
{
    return std::max<qint64>(0, time) / blockSeconds;
}

} // namespace

GuideTitles::GuideTitles(QObject *parent)
    : QObject(parent)
    , blocks(mostBlocks)
{}

void GuideTitles::setGuide(Guide *newGuide)
{
    if (guide != nullptr) {
        disconnect(guide, nullptr, this, nullptr);
    }
    guide = newGuide;
    if (guide != nullptr) {
        connect(guide, &Guide::changed, this, &GuideTitles::startOver);
    }
    reach = 0;
    newestStart = 0;
    startOver();
}

void GuideTitles::want(const QStringList &entryIds, qint64 from, qint64 to)
{
    wantedIds = entryIds;
    wantedFrom = from;
    wantedTo = to;
    ask();
}

GuideSchedule GuideTitles::schedule(const QString &entryId, qint64 from, qint64 to) const
{
    GuideSchedule result;
    for (qint64 number = blockOf(from); number <= blockOf(to); ++number) {
        const GuideSchedule *block = blocks.object({entryId, number});
        if (block == nullptr) {
            continue;
        }
        if (result.programmes.isEmpty()) {
            result = *block;
            continue;
        }
        // What runs on from the block before is in both.
        const qint64 last = result.programmes.constLast().start;
        std::copy_if(block->programmes.begin(), block->programmes.end(),
                     std::back_inserter(result.programmes),
                     [last](const GuideProgramme &programme) { return programme.start > last; });
    }
    return result;
}

bool GuideTitles::isHere(const QString &entryId, qint64 from, qint64 to) const
{
    for (qint64 number = blockOf(from); number <= blockOf(to); ++number) {
        if (!blocks.contains({entryId, number})) {
            return false;
        }
    }
    return true;
}

void GuideTitles::startOver()
{
    ++generation;
    underWay = 0;
    blocks.clear();
    Q_EMIT cleared();
    if (guide != nullptr && guide->isOpen()) {
        askForNewest();
        ask();
    }
}

void GuideTitles::askForNewest()
{
    guide->fetchLastResult(
        [context = QPointer(this), asked = generation](const GuideResult &result) {
            GuideTitles *self = context;
            if (self != nullptr && self->generation == asked) {
                self->newestStart = result.newest;
                Q_EMIT self->arrived();
            }
        });
}

void GuideTitles::ask()
{
    if (guide == nullptr || !guide->isOpen() || underWay > 0) {
        return;
    }
    for (qint64 number = blockOf(wantedFrom); number <= blockOf(wantedTo); ++number) {
        QStringList missing;
        std::copy_if(wantedIds.begin(), wantedIds.end(), std::back_inserter(missing),
                     [&](const QString &id) {
                         return !blocks.contains({id, number});
                     });
        if (!missing.isEmpty()) {
            ask(missing, number);
        }
    }
}

void GuideTitles::ask(const QStringList &entryIds, qint64 number)
{
    ++underWay;
    guide->fetchTitles(entryIds, number * blockSeconds, (number + 1) * blockSeconds,
                       [context = QPointer(this), asked = generation, entryIds,
                        number](const QHash<QString, GuideSchedule> &answer) {
                           GuideTitles *self = context;
                           if (self != nullptr && self->generation == asked) {
                               self->keep(entryIds, number, answer);
                           }
                       });
}

void GuideTitles::keep(const QStringList &entryIds, qint64 number,
                       const QHash<QString, GuideSchedule> &answer)
{
    for (const QString &id : entryIds) {
        const GuideSchedule schedule = answer.value(id);
        reach = std::max(reach, std::min(archiveSeconds(schedule.entry.catchUp), longestReach));
        blocks.insert({id, number}, new GuideSchedule(schedule));
    }
    --underWay;
    Q_EMIT arrived();
    ask();
}
