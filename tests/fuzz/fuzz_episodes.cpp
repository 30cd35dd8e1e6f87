// The reply with a show's episodes: each one is read, in order, and comes back from the cache.

#include "FuzzTarget.h"

#include "model/CatalogCache.h"
#include "providers/XtreamCatalog.h"
#include "support/PrivateProfile.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

/// The titles that the reply names, season by season.
QStringList titlesIn(const QByteArray &body)
{
    const QJsonObject seasons = QJsonDocument::fromJson(body)["episodes"_L1].toObject();
    QStringList titles;
    for (auto season = seasons.constBegin(); season != seasons.constEnd(); ++season) {
        const QJsonArray list = season.value().toArray();
        for (const QJsonValueConstRef element : list) {
            titles << element.toObject().value("title"_L1).toString();
        }
    }
    return titles;
}

} // namespace

void fuzz(FuzzInput &input)
{
    const QString show = QString::fromUtf8(input.takeUntil('\n'));
    const QByteArray body = input.rest();
    const QList<Episode> episodes = parseSeriesEpisodes(body);
    QStringList titles;
    for (const Episode &episode : episodes) {
        titles << episode.title;
    }
    require(titles == titlesIn(body), "every episode is read, in order");

    // The file would grow with each new show.
    QFile::remove(PrivateProfile::current().appDataDir() + "/catalog_cache/fuzz.json"_L1);
    CatalogCache::saveEpisodes(u"fuzz"_s, show, episodes);
    QList<Episode> loaded;
    require(CatalogCache::loadEpisodes(u"fuzz"_s, show, 3600, loaded), "saved episodes are there");
    require(loaded == episodes, "saved episodes come back unchanged");
}
