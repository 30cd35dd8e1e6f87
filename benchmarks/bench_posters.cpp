// What finding the posters near the view costs on a scroll step: it must not grow with the grid.

#include "fakeprovider/CatalogGenerator.h"
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

/// A poster grid on screen with so many entries, scrolled to its middle.
std::unique_ptr<QListWidget> makeGrid(int count)
{
    QStackedWidget *stack = nullptr;
    QListWidget *categoryList = nullptr;
    QLineEdit *allSearch = nullptr;
    QLabel *title = nullptr;
    QLineEdit *search = nullptr;
    QComboBox *sort = nullptr;
    QListWidget *grid = nullptr;
    const std::unique_ptr<QWidget> tab(buildPosterTabSkeleton(
        nullptr, &stack, &categoryList, &allSearch, &title, &search, &sort, &grid, u"Movie"_s));
    grid->setParent(nullptr);
    grid->resize(400, 600);
    grid->show();
    fillPosterGrid(grid, CatalogGenerator().movies(count, 200), QIcon(makePlaceholderPoster()));
    QCoreApplication::processEvents();
    grid->verticalScrollBar()->setValue(grid->verticalScrollBar()->maximum() / 2);
    return std::unique_ptr<QListWidget>(grid);
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
    const auto grid = makeGrid(static_cast<int>(state.range(0)));
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
    const auto grid = makeGrid(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(countNear(*grid, bandOf(*grid), 0, grid->count() - 1));
    }
}
BENCHMARK(posterPassPlain)->Arg(1000)->Arg(10000)->Arg(150000)->Unit(benchmark::kMicrosecond);

} // namespace
