#pragma once

#include "guide/GuideReader.h"
#include "guide/StoredGuide.h"

#include <QString>
#include <QStringList>

#include <memory>

using namespace Qt::StringLiterals; // for tests only

/// What the tests of an import share: a guide for a playlist with one channel, and what a reader
/// finds of it. A test class that derives from it calls reset() in its init().
class ImportedGuide
{
protected:
    static constexpr qint64 now = StoredGuide::now;
    static constexpr qint64 hour = StoredGuide::hour;
    static constexpr qint64 day = StoredGuide::day;
    inline static const QString one = u"http://h/1"_s; ///< the channel of the playlist
    inline static const QString two = u"http://h/2"_s; ///< for a test to add

    void reset()
    {
        guide = std::make_unique<StoredGuide>();
        guide->addEntry(one, u"Channel One"_s, uR"(tvg-id="one")"_s);
    }
    void addTwoHours() const
    {
        guide->addChannel(u"one"_s, u"First"_s);
        guide->addProgramme(u"one"_s, now, now + hour, u"News"_s, u"What happened"_s);
        guide->addProgramme(u"one"_s, now + hour, now + 2 * hour, u"Film"_s);
    }

    /// "18:00-19:00 News", hours counted from now.
    static QStringList titles(GuideReader &reader, const QString &entry)
    {
        QStringList found;
        const auto answer = reader.schedules({entry}, now - 30 * day, now + 30 * day, true);
        for (const GuideProgramme &programme : answer.value(entry).programmes) {
            found << u"%1-%2 %3"_s.arg(double(programme.start - now) / hour)
                         .arg(double(programme.stop - now) / hour)
                         .arg(programme.title);
        }
        return found;
    }
    static QStringList titles(const StoredGuide &guide, const QString &entry)
    {
        GuideReader reader(guide.path(), 0);
        return titles(reader, entry);
    }

    std::unique_ptr<StoredGuide> guide;
};
