// What runs on a keystroke and on a scroll step.

#include "fakeprovider/CatalogGenerator.h"
#include "model/ItemFilter.h"
#include "model/ItemIndex.h"
#include "ui/BrowseTab.h"
#include "ui/Thumbnails.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QIcon>
#include <QListWidget>
#include <QTableWidget>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int categories = 200;

QList<MediaItem> movies(const benchmark::State &state)
{
    return CatalogGenerator().movies(static_cast<int>(state.range(0)), categories);
}

void tableKeystroke(benchmark::State &state)
{
    const QList<MediaItem> items = movies(state);
    QTableWidget table(0, 1);
    table.resize(300, 600);
    table.show();
    for (auto _ : state) {
        fillTable(&table, applyFilter(items, {}, u"e"_s));
        QCoreApplication::processEvents();
        table.grab();
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
    ItemIndex index;
    index.select(items, {}, {}, sortKey);
    for (auto _ : state) {
        benchmark::DoNotOptimize(index.select(items, {}, query, sortKey));
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
    const QList<MediaItem> items = movies(state);
    const QIcon placeholder(makePlaceholderPoster());
    QWidget *root = nullptr;
    QStackedWidget *stack = nullptr;
    QListWidget *categoryList = nullptr;
    QLineEdit *allSearch = nullptr;
    QLabel *title = nullptr;
    QLineEdit *search = nullptr;
    QComboBox *sort = nullptr;
    QListWidget *grid = nullptr;
    root = buildPosterTabSkeleton(nullptr, &stack, &categoryList, &allSearch, &title, &search,
                                  &sort, &grid, u"Movie"_s);
    grid->setParent(nullptr);
    grid->resize(400, 600);
    grid->show();
    for (auto _ : state) {
        fillPosterGrid(grid, items, placeholder);
        QCoreApplication::processEvents();
        grid->grab();
    }
    delete grid;
    delete root;
}
BENCHMARK(posterGridFill)->Arg(10000)->Arg(100000)->Arg(150000)->Unit(benchmark::kMillisecond);

} // namespace
