// What finding the posters near the view costs on a scroll step: it must not grow with the grid.

#include "fakeprovider/CatalogGenerator.h"
#include "model/CatalogSection.h"
#include "ui/BrowseTab.h"
#include "ui/Thumbnails.h"

#include <QCoreApplication>
#include <QIcon>
#include <QListWidget>
#include <QScrollBar>

#include <benchmark/benchmark.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// A tab of posters on screen with so many entries, its grid scrolled to the middle.
std::unique_ptr<BrowseTab> openTab(int count)
{
    auto tab =
        std::make_unique<BrowseTab>(browseTabSpecs()[static_cast<size_t>(CatalogSection::Movie)],
                                    QIcon(makePlaceholderPoster()));
    tab->setItems(CatalogGenerator().movies(count, 200));
    tab->showPage(BrowsePage::Items);
    tab->resize(420, 700);
    tab->show();
    QCoreApplication::processEvents();
    QScrollBar &bar = *tab->posterGrid()->verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    return tab;
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
    const auto tab = openTab(static_cast<int>(state.range(0)));
    const QListWidget *grid = tab->posterGrid();
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
    const auto tab = openTab(static_cast<int>(state.range(0)));
    const QListWidget *grid = tab->posterGrid();
    for (auto _ : state) {
        benchmark::DoNotOptimize(countNear(*grid, bandOf(*grid), 0, grid->count() - 1));
    }
}
BENCHMARK(posterPassPlain)->Arg(1000)->Arg(10000)->Arg(150000)->Unit(benchmark::kMicrosecond);

} // namespace
