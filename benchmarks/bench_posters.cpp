// What finding the posters near the view costs on a scroll step: it must not grow with the grid.

#include "fakeprovider/CatalogGenerator.h"
#include "model/ItemFilter.h"
#include "ui/PosterGrid.h"
#include "ui/PosterStore.h"

#include <QCoreApplication>
#include <QListWidget>
#include <QScrollBar>

#include <benchmark/benchmark.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// A poster grid on screen with so many entries, scrolled to its middle.
std::unique_ptr<QListWidget> openGrid(int count)
{
    auto grid = std::make_unique<QListWidget>();
    auto *posters = new PosterStore(grid.get());
    auto *controller = new PosterGrid(grid.get(), posters);
    grid->resize(420, 600);
    grid->show();
    const QList<MediaItem> films = CatalogGenerator().movies(count, 200);
    controller->fill({films, filteredRows(films, {}, {})});
    QCoreApplication::processEvents();
    grid->verticalScrollBar()->setValue(grid->verticalScrollBar()->maximum() / 2);
    return grid;
}

/// Looks at the rows from `first` to `last` as a pass does when all near ones were asked for.
int countNear(const QListWidget &grid, const QRect &band, int first, int last)
{
    int found = 0;
    for (int row = first; row <= last; ++row) {
        found += grid.visualItemRect(grid.item(row)).intersects(band) ? 1 : 0;
    }
    return found;
}

QRect bandOf(const QListWidget &grid)
{
    return grid.viewport()->rect().adjusted(0, -400, 0, 400);
}

void posterPass(benchmark::State &state)
{
    const auto grid = openGrid(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const QRect band = bandOf(*grid);
        const RowRange rows = rowsInBand(*grid, band);
        benchmark::DoNotOptimize(countNear(*grid, band, rows.first, rows.last));
    }
}
BENCHMARK(posterPass)->Arg(1000)->Arg(10000)->Arg(150000)->Unit(benchmark::kMicrosecond);

/// The plain walk over every item, to compare with.
void posterPassPlain(benchmark::State &state)
{
    const auto grid = openGrid(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(countNear(*grid, bandOf(*grid), 0, grid->count() - 1));
    }
}
BENCHMARK(posterPassPlain)->Arg(1000)->Arg(10000)->Arg(150000)->Unit(benchmark::kMicrosecond);

} // namespace
