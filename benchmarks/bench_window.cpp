// How long the window stays away from its event loop with catalogs as large as people have: an
// account of 45,000 channels, 150,000 films and 30,000 shows, and a playlist of 300,000 entries;
// both again with 10,000 favorites and 50,000 positions; then both with 600,000. The sizes are
// divided by the first argument of the program.

#include "HoldMeter.h"
#include "Results.h"
#include "fakeprovider/CatalogGenerator.h"
#include "fakeprovider/XtreamProvider.h"
#include "library/Library.h"
#include "model/CatalogCache.h"
#include "model/SourceManager.h"
#include "support/PrivateProfile.h"
#include "ui/MainWindow.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int loadTimeoutMs = 120000;
const QString accountName = u"account"_s;
const QString playlistName = u"playlist"_s;

/// How many entries an account has.
struct Sizes
{
    int channels = 0;
    int films = 0;
    int shows = 0;
};

double cpuMs()
{
    return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

/// The resident memory of this process in bytes; 0 where the system does not tell.
double residentBytes()
{
    QFile file(u"/proc/self/status"_s);
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith("VmRSS:")) {
                return line.mid(6).trimmed().split(' ').first().toDouble() * 1024;
            }
        }
    }
    return 0;
}

QByteArray inContext(const QByteArray &context, const char *what)
{
    return context + ": " + what;
}

HoldMeter::Hold longer(const HoldMeter::Hold &a, const HoldMeter::Hold &b)
{
    return {std::max(a.wallMs, b.wallMs), std::max(a.cpuMs, b.cpuMs)};
}

bool runUntil(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(loadTimeoutMs);
    while (!condition()) {
        if (deadline.hasExpired()) {
            std::fprintf(stderr, "the window did not get there\n");
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void settle()
{
    QEventLoop loop;
    QTimer::singleShot(300, &loop, &QEventLoop::quit);
    loop.exec();
}

template <typename Widget>
Widget *child(const QWidget &window, const QString &name)
{
    return window.findChild<Widget *>(name);
}

bool isCovered(const QWidget &window)
{
    const auto *overlay = child<QWidget>(window, u"loadingOverlay"_s);
    return overlay != nullptr && overlay->isVisible();
}

SourceConfig account(const XtreamProvider &provider)
{
    SourceConfig config = defaultSourceConfig();
    config.type = SourceType::Xtream;
    config.name = accountName;
    config.url = provider.url();
    config.username = provider.user();
    config.password = provider.password();
    return config;
}

/// One window over what is stored, with the account or the playlist as its source.
class Run
{
public:
    explicit Run(const SourceConfig &source)
    {
        SourceManager sources(nullptr);
        sources.saveSource(source);
        sources.setLastActiveSourceName(source.name);
    }

    /// Opens the window; the rows of the table begin with `title` from here on.
    void open(const QByteArray &title, const std::function<bool(const QWidget &)> &isFilled)
    {
        context = title;
        const double cpuBefore = cpuMs();
        QElapsedTimer clock;
        clock.start();
        window = std::make_unique<MainWindow>(u"http://127.0.0.1:9"_s);
        window->show();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        report("window on screen", static_cast<double>(clock.elapsed()), "ms");
        HoldMeter::restart();
        if (!runUntil([&] { return isFilled(*window) && !isCovered(*window); })) {
            std::exit(1);
        }
        report("lists filled", static_cast<double>(clock.elapsed()), "ms");
        report("CPU time of the load", cpuMs() - cpuBefore, "ms");
        settle();
        reportHold("longest hold of the load", HoldMeter::longest());
    }

    void type(const char *name, const QString &field, const QString &text)
    {
        auto *edit = child<QLineEdit>(*window, field);
        HoldMeter::Hold longest;
        for (int length = 1; length <= text.size(); ++length) {
            HoldMeter::restart();
            edit->setText(text.left(length));
            settle();
            longest = longer(longest, HoldMeter::longest());
        }
        HoldMeter::restart();
        edit->clear();
        settle();
        reportHold(name, longer(longest, HoldMeter::longest()));
    }

    void openCategory(const char *name, const QString &list, int index)
    {
        auto *categories = child<QListWidget>(*window, list);
        HoldMeter::restart();
        Q_EMIT categories->itemClicked(categories->item(index));
        settle();
        reportHold(name, HoldMeter::longest());
    }

    void scroll(const QString &list)
    {
        QScrollBar *bar = child<QAbstractItemView>(*window, list)->verticalScrollBar();
        HoldMeter::Hold longest;
        for (int step = 0; step <= 20; ++step) {
            HoldMeter::restart();
            bar->setValue(bar->maximum() / 20 * step);
            QCoreApplication::processEvents();
            longest = longer(longest, HoldMeter::longest());
        }
        reportHold("longest hold of a scroll step", longest);
    }

    void openShow(const QString &id)
    {
        HoldMeter::restart();
        window->showEpisodesInline(id, u"A show"_s);
        settle();
        reportHold("show opened, its episodes cached", HoldMeter::longest());
    }

    void refresh()
    {
        HoldMeter::restart();
        window->refreshActiveSource();
        if (!runUntil([&] { return !isCovered(*window); })) {
            std::exit(1);
        }
        settle();
        reportHold("longest hold of a refresh", HoldMeter::longest());
    }

    void report(const char *name, double value, const char *unit) const
    {
        reportFigure(inContext(context, name).constData(), "now", value, unit);
    }

    void close() { window.reset(); }

private:
    void reportHold(const char *name, const HoldMeter::Hold &hold) const
    {
        report(name, hold.wallMs, "ms");
        reportFigure(inContext(context, name).constData(), "CPU", hold.cpuMs, "ms");
    }

    QByteArray context;
    std::unique_ptr<MainWindow> window;
};

std::function<bool(const QWidget &)> accountFilled(const Sizes &sizes)
{
    return [sizes](const QWidget &window) {
        return child<QTableWidget>(window, u"liveTable"_s)->rowCount() == sizes.channels &&
               child<QListWidget>(window, u"moviePosterList"_s)->count() == sizes.films &&
               child<QListWidget>(window, u"seriesPosterList"_s)->count() == sizes.shows;
    };
}

constexpr int favoriteCount = 10000;
constexpr int positionCount = 50000;

/// Adds rows for a share of a cached section: every n-th entry, so that they lie all over it.
void keepEntries(LibraryRows &rows, const QString &source, EntryKind kind, const QString &section,
                 qsizetype favorites, qsizetype positions)
{
    CatalogCache::Section cached;
    CatalogCache::load(source, section, cached);
    const auto each = [&](qsizetype wanted, const auto &add) {
        const qsizetype step =
            std::max<qsizetype>(1, cached.items.size() / std::max<qsizetype>(1, wanted));
        for (qsizetype row = 0; row < cached.items.size() && wanted > 0; row += step, --wanted) {
            add(libraryEntry(source, kind, cached.items.at(row)));
        }
    };
    each(favorites, [&](const LibraryEntry &entry) {
        rows.favorites.append({entry, rows.favorites.size() + 1, 1});
    });
    each(positions, [&](const LibraryEntry &entry) {
        Progress row = progressOf(entry);
        row.positionMs = 60000;
        row.durationMs = 120000;
        row.updatedAt = rows.progress.size();
        rows.progress.append(row);
    });
}

/// Fills the library of the next window; the catalog of the source is in the cache.
void fillLibrary(const QString &source, int divisor)
{
    LibraryChange change;
    if (source == accountName) {
        keepEntries(change.put, source, EntryKind::Live, u"live"_s, favoriteCount / 2 / divisor, 0);
        keepEntries(change.put, source, EntryKind::Movie, u"movie"_s, favoriteCount / 2 / divisor,
                    positionCount / divisor);
    } else {
        keepEntries(change.put, source, EntryKind::Channel, u"channel"_s, favoriteCount / divisor,
                    0);
    }
    // One that no entry is in: every entry is looked at, and none leaves the lists.
    change.put.hiddenCategories.append(
        HiddenCategory{{source, EntryKind::Movie, u"none"_s, {}, {}}});
    Library library(nullptr);
    if (!library.applyNow(change)) {
        std::exit(1);
    }
}

void useAccount(Run &run, const Sizes &sizes, const QByteArray &title)
{
    run.open(title + " from the network", accountFilled(sizes));
    run.refresh();
    run.type("longest hold on a keystroke over all films", u"movieAllSearch"_s, u"the"_s);
    run.type("longest hold on a keystroke over all channels", u"liveAllSearch"_s, u"the"_s);
    run.openCategory("\"All Categories\" of films opened", u"movieCategoryList"_s, 0);
    run.openCategory("a category of films opened", u"movieCategoryList"_s, 5);
    run.openCategory("\"All Categories\" of films opened again", u"movieCategoryList"_s, 0);
    run.scroll(u"moviePosterList"_s);
    CatalogCache::saveEpisodes(accountName, u"1"_s, {{}, {}, {}});
    run.openShow(u"1"_s);
    run.close();
    run.open(title + " from its cache", accountFilled(sizes));
}

/// `title` names the account in the table. With a divisor also with a library, divided by it.
void measureAccount(const Sizes &sizes, const QByteArray &title, int libraryDivisor = 0)
{
    XtreamProvider provider;
    provider.generateCatalog({200, sizes.channels, sizes.films, sizes.shows});
    Run run(account(provider));
    useAccount(run, sizes, title);
    run.close();
    if (libraryDivisor == 0) {
        return;
    }
    fillLibrary(accountName, libraryDivisor);
    SourceManager(nullptr).saveSource(account(provider)); // no longer fresh
    useAccount(run, sizes, title + " with a library");
    run.openCategory("favorites of films opened", u"movieCategoryList"_s, 1);
    run.openCategory("\"Continue Watching\" opened", u"movieCategoryList"_s, 2);
    run.close();
    Library(nullptr).clear(
        {LibraryPart::Favorites, LibraryPart::Progress, LibraryPart::HiddenCategories});
}

void writePlaylist(const QString &path, int entries)
{
    CatalogGenerator generator;
    generator.setIconBase(u"http://127.0.0.1/logos/"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        std::exit(1);
    }
    file.write(generator.playlist(entries, 300, u"http://127.0.0.1/live/"_s));
}

void measurePlaylist(int entries, const QByteArray &title, int libraryDivisor = 0)
{
    QTemporaryDir folder;
    SourceConfig config = defaultSourceConfig();
    config.name = playlistName;
    config.url = folder.filePath(u"list.m3u"_s);
    const auto filled = [](int count) {
        return [count](const QWidget &window) {
            return child<QTableWidget>(window, u"channelTable"_s)->rowCount() == count;
        };
    };
    Run run(config);
    writePlaylist(config.url, 1);
    run.open("playlist of one entry", filled(1));
    const double before = residentBytes();
    run.close();

    SourceManager(nullptr).saveSource(config); // no longer fresh
    writePlaylist(config.url, entries);
    run.open(title + " from its file", filled(entries));
    run.report("memory per entry", (residentBytes() - before) / entries, "bytes");
    const auto use = [&run] {
        run.type("longest hold on a keystroke", u"channelAllSearch"_s, u"the"_s);
        run.openCategory("\"All Categories\" opened", u"channelCategoryList"_s, 0);
        run.scroll(u"channelTable"_s);
        run.close();
    };
    use();
    run.open(title + " from its cache", filled(entries));
    run.close();
    if (libraryDivisor > 0) {
        fillLibrary(playlistName, libraryDivisor);
        SourceManager(nullptr).saveSource(config);
        run.open(title + " with a library from its file", filled(entries));
        use();
        Library(nullptr).clear({LibraryPart::Favorites, LibraryPart::HiddenCategories});
    }
}

} // namespace

int main(int argc, char **argv)
{
    PrivateProfile profile;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication app(argc, argv);
    const int divisor = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 1;
    measurePlaylist(300000 / divisor, "playlist", divisor);
    measureAccount({45000 / divisor, 150000 / divisor, 30000 / divisor}, "account", divisor);
    measurePlaylist(600000 / divisor, "playlist of 600,000");
    measureAccount({60000 / divisor, 420000 / divisor, 120000 / divisor}, "account of 600,000");
    return 0;
}
