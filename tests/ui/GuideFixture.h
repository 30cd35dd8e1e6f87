#pragma once

#include "guide/Guide.h"
#include "guide/StoredGuide.h"
#include "ui/GuideTitles.h"
#include "ui/ShownEntries.h"

#include <QDateTime>

#include <algorithm>
#include <numeric>

/// A stored guide around the present, and the entries of its source:
///
///     One, with an archive:   Old -3 to -1, Running -1 to 2, Later 2 to 3, Match 20 to 28
///     Two:                    Film -2 to 1, News 1 to 4, Match 6 to 7
///     Three:                  not in the guide
///
/// in hours from `now`.
struct GuideFixture
{
    GuideFixture()
    {
        add(QStringLiteral("One"), QStringLiteral("tvg-id=\"one\" catchup=\"default\" "
                                                  "catchup-source=\"http://h/{utc}\" "
                                                  "catchup-days=\"3\""));
        add(QStringLiteral("Two"), QStringLiteral("tvg-id=\"two\""));
        add(QStringLiteral("Three"), {});
        stored.addChannel(QStringLiteral("one"), QStringLiteral("1"));
        stored.addChannel(QStringLiteral("two"), QStringLiteral("2"));
        programme("one", -3, -1, "Old");
        programme("one", -1, 2, "Running");
        programme("one", 2, 3, "Later");
        programme("one", 20, 28, "Match");
        programme("two", -2, 1, "Film");
        programme("two", 1, 4, "News");
        programme("two", 6, 7, "Match");
        store();
        guide.open(stored.path(), 0);
    }

    /// Adds an entry of that name; its id is an address.
    void add(const QString &name, const QString &attributes)
    {
        MediaItem item;
        item.id = QStringLiteral("http://h/") + name;
        item.name = name;
        item.categoryId = name;
        items.append(item);
        stored.addEntry(item.id, name, attributes);
    }
    void programme(const char *channel, qint64 from, qint64 to, const char *title)
    {
        stored.addProgramme(QString::fromLatin1(channel), at(from), at(to),
                            QString::fromLatin1(title),
                            QStringLiteral("About ") + QString::fromLatin1(title));
    }
    void store() const
    {
        GuideImportJob job = stored.job();
        job.now = now;
        GuideImport(job).run();
    }
    qint64 at(qint64 hours) const { return now + hours * StoredGuide::hour; }
    ShownEntries entries() const
    {
        QList<int> rows(items.size());
        std::iota(rows.begin(), rows.end(), 0);
        return {items, rows};
    }

    /// Whether a grid in there has got the titles of the hours around now.
    bool isShownBy(const QObject &view) const
    {
        const auto *titles = view.findChild<GuideTitles *>();
        return std::all_of(items.begin(), items.end(), [&](const MediaItem &item) {
            return titles->isHere(item.id, at(-1), at(2));
        });
    }

    const qint64 now = QDateTime::currentSecsSinceEpoch();
    StoredGuide stored;
    QList<MediaItem> items;
    Guide guide{nullptr};
};
