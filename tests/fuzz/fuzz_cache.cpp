// A damaged or foreign cache file: it is read or refused, a save makes it whole, and what could be
// read before can be read behind the save.

#include "FuzzTarget.h"

#include "model/CatalogCache.h"
#include "support/PrivateProfile.h"
#include "support/TestFiles.h"

#include <QJsonDocument>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString source = u"fuzz"_s;
const QString show = u"7"_s;
const QStringList sections{u"live"_s, u"movie"_s, u"series"_s, u"channel"_s};
constexpr int maxAgeSeconds = 3600;

QString cachePath()
{
    return PrivateProfile::current().appDataDir() + "/catalog_cache/"_L1 + source + ".json"_L1;
}

CatalogCache::Section sampleSection()
{
    return {{{u"1"_s, u"News"_s}, {u"2"_s, u"Sport"_s}},
            {{StreamKind::Movie, u"11"_s, u"Ein \"Film\""_s, u"1"_s, u"http://h/a.png"_s, u"mkv"_s,
              QString(), 7.5, 1700000000},
             {StreamKind::Live, u"12"_s, u"Ä & ß"_s, u"2"_s, {}, {}, u"http://h/1.ts"_s, 0, 0}}};
}

/// A whole file with some bytes replaced, or cut.
QByteArray damagedFile(FuzzInput &input)
{
    QFile::remove(cachePath());
    CatalogCache::save(source, sections.at(0), sampleSection());
    CatalogCache::save(source, sections.at(1), sampleSection());
    CatalogCache::saveEpisodes(source, show, {{u"5"_s, u"Show"_s, 1, 2, u"Title"_s, u"mp4"_s}});
    QByteArray file = readFile(cachePath());
    while (!input.isEmpty()) {
        const qsizetype place = (input.below(256) * 256 + input.below(256)) % file.size();
        const int length = input.below(16);
        const QByteArray patch = input.take(input.below(16));
        file.replace(place, length, patch);
        if (file.isEmpty()) {
            break;
        }
    }
    return file;
}

QList<std::optional<CatalogCache::Section>> loadAll()
{
    QList<std::optional<CatalogCache::Section>> loaded;
    for (const QString &name : sections) {
        CatalogCache::Section section;
        const bool there = CatalogCache::load(source, name, section);
        loaded.append(there ? std::optional(section) : std::nullopt);
    }
    return loaded;
}

std::optional<QList<Episode>> loadShow()
{
    QList<Episode> episodes;
    const bool there = CatalogCache::loadEpisodes(source, show, maxAgeSeconds, episodes);
    return there ? std::optional(episodes) : std::nullopt;
}

void requireWhole()
{
    require(QJsonDocument::fromJson(readFile(cachePath())).isObject(), "a saved file is whole");
    require(QFile::permissions(cachePath()) ==
                (QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser),
            "a saved file is its owner's only");
}

} // namespace

void fuzz(FuzzInput &input)
{
    const bool damaged = input.below(2) == 1;
    const qsizetype saved = input.below(static_cast<int>(sections.size()));
    writeFile(cachePath(), damaged ? damagedFile(input) : input.rest());

    auto expected = loadAll();
    const auto episodes = loadShow();
    CatalogCache::save(source, sections.at(saved), sampleSection());
    requireWhole();
    expected[saved] = sampleSection();
    require(loadAll() == expected, "a save changes its own section only");
    require(loadShow() == episodes, "a save keeps the episodes");

    const QList<Episode> newEpisodes{{u"6"_s, u"Show"_s, 2, 1, u"%1 \"x\""_s, u"ts"_s}};
    CatalogCache::saveEpisodes(source, show, newEpisodes);
    requireWhole();
    require(loadShow() == newEpisodes, "saved episodes come back unchanged");
    require(loadAll() == expected, "episodes change no section");
}
