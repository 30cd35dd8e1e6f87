#include "library/Library.h"
#include "ui/BrowseTab.h"
#include "ui/EpisodePage.h"
#include "ui/MainWindow.h"
#include "ui/PlayerPanel.h"
#include "ui/ResumeKeeper.h"
#include "ui/SourceGuide.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace {

/// The place of an episode among those of its show, -1 if it is gone. A provider may have given it
/// another id.
qsizetype indexOf(const Progress &left, const QList<Episode> &episodes)
{
    const auto find = [&episodes](const auto &matches) {
        const auto found = std::find_if(episodes.begin(), episodes.end(), matches);
        return found != episodes.end() ? found - episodes.begin() : -1;
    };
    const auto byId = find([&left](const Episode &episode) { return episode.id == left.id; });
    return byId >= 0 ? byId : find([&left](const Episode &episode) {
        return episode.season == left.season && episode.episodeNumber == left.episodeNumber;
    });
}

void noteEpisodes(Library &library, const LibraryEntry &show, const QList<Episode> &episodes)
{
    QStringList ids;
    for (const Episode &episode : episodes) {
        ids << episode.id;
    }
    library.noteEpisodes(show, ids);
}

} // namespace

void MainWindow::createResumeKeeper()
{
    resumeKeeper = new ResumeKeeper(player, session, library, this);
    connect(resumeKeeper, &ResumeKeeper::offered, playerPanel, &PlayerPanel::offerToContinue);
    connect(resumeKeeper, &ResumeKeeper::withdrawn, playerPanel, &PlayerPanel::withdrawOffer);
    connect(playerPanel, &PlayerPanel::continueRequested, resumeKeeper,
            &ResumeKeeper::continueAtOffer);
    connect(&browseTab(CatalogSection::Movie), &BrowseTab::continued, this,
            &MainWindow::continueEntry);
    connect(&browseTab(CatalogSection::Series), &BrowseTab::continued, this,
            &MainWindow::continueShow);
    connect(episodePage, &EpisodePage::markRequested, this, &MainWindow::markEpisodes);
    connect(library, &Library::changed, this,
            [this](LibraryPart part, const QString & /*source*/, EntryKind kind) {
                if (part == LibraryPart::Progress && kind == EntryKind::Episode) {
                    updateEpisodeMarks();
                }
            });
}

std::optional<Progress> MainWindow::keptProgress(const MediaItem &item,
                                                 const LibraryEntry &entry) const
{
    if (entry.source.isEmpty() || !StreamKind::isSeekable(item.type)) {
        return std::nullopt;
    }
    return item.type == StreamKind::Episode ? episodeQueue.currentProgress() : progressOf(entry);
}

void MainWindow::continueEntry(const MediaItem &film)
{
    playEntry(CatalogSection::Movie, film);
    // A film without a URL leaves what played before.
    if (playingEntry == libraryEntry(currentSource.name, EntryKind::Movie, film)) {
        resumeKeeper->continueAtOffer();
    }
}

void MainWindow::continueShow(const MediaItem &show)
{
    showToContinue = show.id;
    openEpisodes(show.id, show.name);
}

void MainWindow::continueOpenShow()
{
    const LibraryEntry &show = episodePage->currentShow();
    const QList<Episode> &episodes = episodePage->episodes();
    const QList<Progress> shows = library->continueWatching(show.source, EntryKind::Episode);
    const auto left = std::find_if(shows.begin(), shows.end(), [&show](const Progress &episode) {
        return episode.showId == show.id;
    });
    if (left == shows.end()) {
        return;
    }
    const qsizetype index = indexOf(*left, episodes);
    const bool isFinished = left->positionMs == 0;
    const qsizetype next = isFinished ? index + 1 : index;
    if (index >= 0 && next < episodes.size()) {
        playEpisode(static_cast<int>(next));
        resumeKeeper->continueAtOffer();
    }
}

void MainWindow::markEpisodes(const QList<Progress> &episodes, bool watched)
{
    offerUndo(watched ? tr("Marked as Watched") : tr("Marked as Unwatched"),
              library->setWatched(episodes, watched));
}

void MainWindow::updateEpisodeMarks()
{
    if (updatingEpisodeMarks) {
        // Noting episodes changes the library.
        return;
    }
    const QScopedValueRollback guard(updatingEpisodeMarks, true);
    const LibraryEntry &shown = episodePage->currentShow();
    const LibraryEntry &playing = episodeQueue.show();
    if (playing.source != shown.source || playing.id != shown.id) {
        noteEpisodes(*library, playing, episodeQueue.episodes());
    }
    noteEpisodes(*library, shown, episodePage->episodes());
    episodePage->showProgress(library->progress(shown.source, EntryKind::Episode));
}

void MainWindow::moveWhatPlays(const QString &from, const QString &to)
{
    resumeKeeper->moveSource(from, to);
    if (episodeQueue.show().source == from) {
        episodeQueue.renameSource(to);
    }
    if (playingEntry.source == from) {
        playingEntry.source = to;
    }
    playingList->moveSource(from, to);
    if (playingOrigin.source.name == from) {
        playingOrigin.source.name = to;
    }
    sourceGuide->moveSource(from, to);
}
