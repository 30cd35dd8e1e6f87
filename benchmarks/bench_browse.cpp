// What runs on a keystroke and on a scroll step.

#include "fakeprovider/CatalogGenerator.h"
#include "model/CatalogSection.h"
#include "model/ItemFilter.h"
#include "model/ItemIndex.h"
#include "ui/BrowseTab.h"
#include "ui/PosterStore.h"

#include <QCoreApplication>
#include <QLineEdit>

#include <benchmark/benchmark.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int categories = 200;

QList<MediaItem> movies(const benchmark::State &state)
{
    return CatalogGenerator().movies(static_cast<int>(state.range(0)), categories);
}

/// The items page of a tab on screen, with so many entries.
std::unique_ptr<BrowseTab> openTab(const benchmark::State &state, CatalogSection section)
{
    auto *posters = new PosterStore;
    auto tab = std::make_unique<BrowseTab>(browseTabSpecs()[static_cast<size_t>(section)], posters);
    posters->setParent(tab.get());
    tab->setItems(movies(state));
    tab->showPage(BrowsePage::Items);
    tab->resize(420, 700);
    tab->show();
    return tab;
}

void paint(BrowseTab &tab)
{
    QCoreApplication::processEvents();
    tab.grab();
}

void tableKeystroke(benchmark::State &state)
{
    const auto tab = openTab(state, CatalogSection::Live);
    tab->findChild<QLineEdit *>(u"liveSearch"_s)->setText(u"e"_s);
    for (auto _ : state) {
        tab->refilter();
        paint(*tab);
    }
}
BENCHMARK(tableKeystroke)->Arg(100000)->Arg(600000)->Unit(benchmark::kMillisecond);

void posterFilter(benchmark::State &state, const QString &query, const QString &sortKey)
{
    const QList<MediaItem> items = movies(state);
    for (auto _ : state) {
        QList<MediaItem> filtered = applyFilter(items, {}, query);
        sortItems(filtered, query, sortKey);
        benchmark::DoNotOptimize(filtered);
    }
}
void posterKeystroke(benchmark::State &state, const QString &query, const QString &sortKey)
{
    const QList<MediaItem> items = movies(state);
    ItemIndex index(items);
    index.prepareOrder(sortKey);
    for (auto _ : state) {
        benchmark::DoNotOptimize(index.select({}, query, sortKey));
    }
}
BENCHMARK_CAPTURE(posterKeystroke, all_by_name, QString(), u"name"_s)
    ->Arg(100000)
    ->Arg(150000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(posterKeystroke, letter_by_name, u"e"_s, u"name"_s)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(posterFilter, all_by_name, QString(), u"name"_s)
    ->Arg(100000)
    ->Arg(150000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(posterFilter, letter_by_name, u"e"_s, u"name"_s)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(posterFilter, word_by_rating, u"news"_s, u"rating"_s)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);

void posterGridFill(benchmark::State &state)
{
    const auto tab = openTab(state, CatalogSection::Movie);
    for (auto _ : state) {
        tab->refilter();
        paint(*tab);
    }
}
BENCHMARK(posterGridFill)->Arg(10000)->Arg(100000)->Arg(150000)->Unit(benchmark::kMillisecond);

} // namespace
