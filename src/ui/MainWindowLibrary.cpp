#include "library/Library.h"
#include "model/CatalogCache.h"
#include "player/VlcPlayer.h"
#include "providers/CatalogLoader.h"
#include "providers/XtreamClient.h"
#include "ui/BrowseTab.h"
#include "ui/MainWindow.h"
#include "ui/PlainMessageBox.h"
#include "ui/PlaybackSession.h"
#include "ui/TabLibrary.h"
#include "ui/UndoBar.h"

#include <QShortcut>
#include <QTabWidget>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// What plays as long as this was watched: changing channels leaves no trace.
constexpr int watchedAfterMs = 30'000;

} // namespace

void MainWindow::createLibrary()
{
    library = new Library(this);
    connect(
        library, &Library::problem, this,
        [this](const QString &text) {
            PlainMessageBox::warn(this, tr("Favorites and Positions"), text);
        },
        Qt::QueuedConnection);
    undoBar = new UndoBar(tabs);
    for (const CatalogSection section : {CatalogSection::Live, CatalogSection::Movie,
                                         CatalogSection::Series, CatalogSection::Channel}) {
        auto *tabLibrary = new TabLibrary(library, section, this);
        tabLibraries.append(tabLibrary);
        browseTab(section).setLibrary(tabLibrary);
        connect(tabLibrary, &TabLibrary::undoOffered, this, &MainWindow::offerUndo);
        connect(tabLibrary, &TabLibrary::showMarkRequested, this, &MainWindow::markShow);
    }
    auto *favorite = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_D), this);
    connect(favorite, &QShortcut::activated, this, &MainWindow::toggleFavorite);
}

/// Of what has played long enough.
void MainWindow::createHistory()
{
    watchedTimer = new QTimer(this);
    watchedTimer->setObjectName(u"watchedTimer"_s);
    watchedTimer->setSingleShot(true);
    watchedTimer->setInterval(watchedAfterMs);
    connect(session, &PlaybackSession::entryChanged, this, [this] {
        watchedTimer->stop();
        isNoted = false;
    });
    connect(session, &PlaybackSession::interrupted, watchedTimer, &QTimer::stop);
    connect(session, &PlaybackSession::stopped, watchedTimer, &QTimer::stop);
    connect(player, &VlcPlayer::playbackProgressing, this, [this] {
        if (!isNoted && !watchedTimer->isActive()) {
            watchedTimer->start();
        }
    });
    connect(watchedTimer, &QTimer::timeout, this, [this] {
        isNoted = true;
        if (!playingEntry.source.isEmpty()) {
            library->noteWatched(playingEntry);
        }
    });
}

void MainWindow::showLibraryOf(const QString &sourceName)
{
    for (TabLibrary *tabLibrary : std::as_const(tabLibraries)) {
        tabLibrary->setSource(sourceName);
    }
}

/// A playlist may have given its channels other URLs.
void MainWindow::followPlaylist(const QList<MediaItem> &channels)
{
    if (!SourceType::isAccount(currentSource.type)) {
        library->followEntries(currentSource.name, EntryKind::Channel, channels);
    }
}

void MainWindow::offerUndo(const QString &text, const LibraryChange &inverse)
{
    if (!inverse.isEmpty()) {
        undoBar->offer(text, [this, inverse] { library->apply(inverse); });
    }
}

void MainWindow::toggleFavorite()
{
    for (BrowseTab *tab : std::as_const(browseTabs)) {
        if (tab->viewHasFocus()) {
            tab->toggleFavorite();
            return;
        }
    }
    if (!session->hasMedia() || playingEntry.source.isEmpty()) {
        return;
    }
    if (library->favorites(playingEntry.source, playingEntry.kind).contains(playingEntry.id)) {
        offerUndo(tr("Removed from Favorites"), library->removeFavorite(playingEntry));
    } else {
        // What plays need not be in a list that shows its star.
        offerUndo(tr("Added to Favorites"), library->addFavorite(playingEntry));
    }
}

void MainWindow::markShow(const MediaItem &show, bool watched)
{
    const LibraryEntry entry = libraryEntry(currentSource.name, EntryKind::Show, show);
    if (!watched) {
        markEpisodesOfShow(entry, {}, false);
        return;
    }
    QList<Episode> cached;
    if (CatalogCache::loadEpisodes(entry.source, entry.id, catalogMaxAgeSeconds, cached) &&
        !cached.isEmpty()) {
        markEpisodesOfShow(entry, cached, true);
        return;
    }
    // There is a client: shows come with an account.
    catalogLoader->accountClient()->fetchSeriesEpisodes(
        entry.id, [this, entry](const QList<Episode> &episodes) {
            if (!episodes.isEmpty()) {
                CatalogCache::saveEpisodes(entry.source, entry.id, episodes);
                markEpisodesOfShow(entry, episodes, true);
            }
        });
}

/// Marks the show and its episodes in one change. Without `episodes`, those that have marks.
void MainWindow::markEpisodesOfShow(const LibraryEntry &show, const QList<Episode> &episodes,
                                    bool watched)
{
    QList<Progress> rows{progressOf(show)};
    for (const Episode &episode : episodes) {
        rows.append(
            progressOf(show.source, show.id, episode, episode.id == episodes.constLast().id));
    }
    if (!watched) {
        for (const Progress &row : library->progress(show.source, EntryKind::Episode)) {
            if (row.showId == show.id) {
                rows.append(row);
            }
        }
    }
    offerUndo(watched ? tr("Marked as Watched") : tr("Marked as Unwatched"),
              library->setWatched(rows, watched));
}
