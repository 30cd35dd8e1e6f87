// How long each step of loading a large account holds the GUI thread: one run, printed as a table.
// The steps are those of a refresh, with the other kinds' sections in the cache.

#include "fakeprovider/CatalogGenerator.h"
#include "model/CatalogCache.h"
#include "model/CatalogSection.h"
#include "providers/XtreamCatalog.h"
#include "support/PrivateProfile.h"
#include "ui/BrowseTab.h"
#include "ui/PosterStore.h"

#include <QApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int categoryCount = 200;
constexpr int channelCount = 45000;
constexpr int filmCount = 150000;
constexpr int showCount = 30000;

const QString source = u"account"_s;

/// One kind of stream: what the server sends, and the tab that shows it.
struct Kind
{
    const char *title;
    QString section;
    QByteArray categoriesReply;
    QByteArray itemsReply;
    QList<MediaItem> (*parse)(const QByteArray &);
    int entries;

    std::unique_ptr<BrowseTab> tab = {};
};

/// Prints a row for each step and remembers the longest one.
class StepTable
{
public:
    StepTable() { std::printf("%-9s %-28s %9s %10s\n", "kind", "step", "records", "ms"); }

    template <typename Work>
    void step(const Kind &kind, const char *name, qsizetype records, Work work)
    {
        QElapsedTimer clock;
        clock.start();
        work();
        const double ms = static_cast<double>(clock.nsecsElapsed()) / 1e6;
        total += ms;
        longest = std::max(longest, ms);
        std::printf("%-9s %-28s %9lld %10.1f\n", kind.title, name, static_cast<long long>(records),
                    ms);
    }

    void finish() const
    {
        std::printf("\nall steps %.1f ms, the longest %.1f ms\n", total, longest);
    }

private:
    double total = 0;
    double longest = 0;
};

void showTab(Kind &kind, PosterStore &posters)
{
    const auto section = kind.section == "live"_L1 ? CatalogSection::Live : CatalogSection::Movie;
    kind.tab =
        std::make_unique<BrowseTab>(browseTabSpecs()[static_cast<size_t>(section)], &posters);
    kind.tab->showPage(BrowsePage::Items);
    kind.tab->resize(400, 680);
    kind.tab->show();
    QCoreApplication::processEvents();
}

void paint(const Kind &kind)
{
    QCoreApplication::processEvents();
    kind.tab->grab();
}

/// The two replies of a kind, one after the other, as the window takes them.
void load(const Kind &kind, StepTable &steps)
{
    QList<Category> categories;
    QList<MediaItem> items;
    steps.step(kind, "categories: reply to records", categoryCount,
               [&] { categories = parseCategories(kind.categoriesReply); });
    steps.step(kind, "categories: fill", categories.size(),
               [&] { kind.tab->setCategories(categories); });
    steps.step(kind, "categories: cache save", categories.size(), [&] {
        CatalogCache::save(source, kind.section, {categories, {}});
    });

    steps.step(kind, "entries: reply to records", kind.entries,
               [&] { items = kind.parse(kind.itemsReply); });
    steps.step(kind, "entries: filter, sort, fill", items.size(),
               [&] { kind.tab->setItems(items); });
    steps.step(kind, "entries: lay out and paint", items.size(), [&] { paint(kind); });
    steps.step(kind, "entries: cache save", items.size(), [&] {
        CatalogCache::save(source, kind.section, {categories, items});
    });
}

} // namespace

int main(int argc, char **argv)
{
    PrivateProfile profile;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    PosterStore posters;
    CatalogGenerator generator;
    generator.setIconBase(u"http://127.0.0.1/posters/"_s);
    std::vector<Kind> kinds;
    kinds.push_back({"channels", u"live"_s, generator.categoriesReply(categoryCount),
                     generator.liveReply(channelCount, categoryCount), &parseLiveStreams,
                     channelCount});
    kinds.push_back({"films", u"movie"_s, generator.categoriesReply(categoryCount),
                     generator.vodReply(filmCount, categoryCount), &parseVodStreams, filmCount});
    kinds.push_back({"shows", u"series"_s, generator.categoriesReply(categoryCount),
                     generator.seriesReply(showCount, categoryCount), &parseSeries, showCount});
    for (Kind &kind : kinds) {
        CatalogCache::save(source, kind.section,
                           {parseCategories(kind.categoriesReply), kind.parse(kind.itemsReply)});
        showTab(kind, posters);
    }

    StepTable steps;
    for (const Kind &kind : kinds) {
        load(kind, steps);
    }
    for (const Kind &kind : kinds) {
        CatalogCache::Section section;
        steps.step(kind, "restart: cache to records", kind.entries,
                   [&] { CatalogCache::load(source, kind.section, section); });
    }
    steps.finish();
    return 0;
}
