// How long the window stays away from its event loop with catalogs as large as people have: an
// account of 45,000 channels, 150,000 films and 30,000 shows, and a playlist of 300,000 entries.

#include "HoldMeter.h"
#include "fakeprovider/CatalogGenerator.h"
#include "fakeprovider/XtreamProvider.h"
#include "model/CatalogCache.h"
#include "model/SourceManager.h"
#include "support/PrivateProfile.h"
#include "ui/MainWindow.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
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

/// How many entries the run has; all divided by the first argument of the program.
struct Sizes
{
    int channels = 45000;
    int films = 150000;
    int shows = 30000;
    int playlist = 300000;
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

void row(const char *name, double value, const char *unit)
{
    std::printf("%-58s %10.1f %s\n", name, value, unit);
    std::fflush(stdout);
}

void row(const char *name, const HoldMeter::Hold &hold)
{
    std::printf("%-58s %10.1f ms %8.1f ms CPU\n", name, hold.wallMs, hold.cpuMs);
    std::fflush(stdout);
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

    void open(const char *title, const std::function<bool(const QWidget &)> &isFilled)
    {
        const double cpuBefore = cpuMs();
        QElapsedTimer clock;
        clock.start();
        window = std::make_unique<MainWindow>(u"http://127.0.0.1:9"_s);
        window->show();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        const qint64 shownMs = clock.elapsed();
        HoldMeter::restart();
        if (!runUntil([&] { return isFilled(*window) && !isCovered(*window); })) {
            std::exit(1);
        }
        const qint64 filledMs = clock.elapsed();
        const double cpu = cpuMs() - cpuBefore;
        settle();
        std::printf("\n%s\n", title);
        row("  window on screen after", static_cast<double>(shownMs), "ms");
        row("  lists filled after", static_cast<double>(filledMs), "ms");
        row("  CPU time until then", cpu, "ms");
        row("  longest hold", HoldMeter::longest());
    }

    void type(const QString &field, const QString &text)
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
        row("  longest hold on a keystroke", longest);
        row("  search cleared", HoldMeter::longest());
    }

    void openCategory(const QString &list, int index)
    {
        auto *categories = child<QListWidget>(*window, list);
        HoldMeter::restart();
        Q_EMIT categories->itemClicked(categories->item(index));
        settle();
        row(index == 0 ? "  \"All Categories\" opened" : "  a category opened",
            HoldMeter::longest());
    }

    void openShow(const QString &id)
    {
        HoldMeter::restart();
        window->showEpisodesInline(id, u"A show"_s);
        settle();
        row("  a show opened, its episodes cached", HoldMeter::longest());
    }

    void refresh()
    {
        HoldMeter::restart();
        window->refreshActiveSource();
        if (!runUntil([&] { return !isCovered(*window); })) {
            std::exit(1);
        }
        settle();
        row("  longest hold of a refresh", HoldMeter::longest());
    }

    void close() { window.reset(); }

private:
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

void measureAccount(const Sizes &sizes)
{
    XtreamProvider provider;
    provider.generateCatalog({200, sizes.channels, sizes.films, sizes.shows});
    Run run(account(provider));
    run.open("Account, from the network", accountFilled(sizes));
    run.refresh();
    run.type(u"movieAllSearch"_s, u"the"_s);
    run.openCategory(u"movieCategoryList"_s, 0);
    run.openCategory(u"movieCategoryList"_s, 5);
    run.type(u"liveAllSearch"_s, u"the"_s);
    CatalogCache::saveEpisodes(accountName, u"1"_s, {{}, {}, {}});
    run.openShow(u"1"_s);
    run.close();
    run.open("Account, from the cache", accountFilled(sizes));
    run.close();
}

void measurePlaylist(const Sizes &sizes)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"list.m3u"_s);
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) {
            std::exit(1);
        }
        CatalogGenerator generator;
        generator.setIconBase(u"http://127.0.0.1/logos/"_s);
        file.write(generator.playlist(sizes.playlist, 300, u"http://127.0.0.1/live/"_s));
    }
    SourceConfig config = defaultSourceConfig();
    config.name = playlistName;
    config.url = path;
    const auto filled = [sizes](const QWidget &window) {
        return child<QTableWidget>(window, u"channelTable"_s)->rowCount() == sizes.playlist;
    };
    Run run(config);
    const double before = residentBytes();
    run.open("Playlist, from its file", filled);
    row("  resident memory per entry", (residentBytes() - before) / sizes.playlist, "bytes");
    run.type(u"channelAllSearch"_s, u"the"_s);
    run.openCategory(u"channelCategoryList"_s, 0);
    run.close();
    run.open("Playlist, from the cache", filled);
    run.close();
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
    Sizes sizes;
    sizes.channels /= divisor;
    sizes.films /= divisor;
    sizes.shows /= divisor;
    sizes.playlist /= divisor;
    measurePlaylist(sizes);
    measureAccount(sizes);
    return 0;
}
