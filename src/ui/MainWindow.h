#pragma once

#include "desktop/OpenTarget.h"
#include "library/LibraryRecords.h"
#include "model/CatalogRecords.h"
#include "model/CatalogSection.h"
#include "model/SourceConfig.h"
#include "ui/EpisodeQueue.h"
#include "ui/PlaybackErrorBox.h"
#include "ui/PlayingList.h"
#include "ui/WindowMemory.h"

#include <QList>
#include <QMainWindow>
#include <QPointer>

#include <optional>

class BrowseTab;
class CatalogLoader;
class CatchUpPlayer;
class DesktopControls;
class EpisodePage;
class FullscreenChrome;
class Library;
class LoadingOverlay;
class OnNowLines;
class PlaybackSession;
class PlayerPanel;
class PosterStore;
class ReminderKeeper;
class ResumeKeeper;
class ScheduleDialog;
class ServerZones;
class SourceBar;
class SourceDialog;
class SourceGuide;
class SourceManager;
class TabLibrary;
class UndoBar;
class VlcPlayer;
struct CatchUpRules;
struct GuideProgramme;
struct LoadFailure;
struct OnNow;
struct RestorePlan;
struct StartRequest;

class QListWidgetItem;
class QMenu;
class QSplitter;
class QTabWidget;
class QTimer;
class QVBoxLayout;

/// The one window: the source bar, the four browse tabs, and the player beside them.
///
/// One class over several files; the banners name them. Everything runs on the GUI thread.
class MainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    /// Exchanges subscription keys with the service that the build configured.
    MainWindow();
    /// Exchanges subscription keys with the service at this base address.
    explicit MainWindow(const QString &subscriptionBaseUrl);
    ~MainWindow() override;
    Q_DISABLE_COPY_MOVE(MainWindow)

    /// Ends the player for good, within a second. False when libVLC still hangs: the process should
    /// then end without destroying this window, which libVLC may draw into.
    bool endPlayback();

    // ---- MainWindow.cpp: sources ----

    /// Makes `config` the active source and fills its tabs, from the cache when it is fresh and
    /// `force` is false, from the network otherwise.
    void loadSource(const SourceConfig &config, bool force);

    // ---- MainWindowSeries.cpp: shows and episodes ----

    /// Opens the episode page of a show; does nothing before an account was loaded.
    void showEpisodesInline(const QString &seriesId, const QString &seriesName);
    void playNextEpisode();
    void updateNextEpisodeButton();

    // ---- MainWindowResume.cpp: where films and episodes were left ----

    /// Plays a film of the active source where it was left; from its start if that is not known.
    void continueEntry(const MediaItem &film);
    /// Opens the page of a show of the active source. When its episodes are there, plays the one
    /// that was left where it was left, or the one that follows a finished one.
    void continueShow(const MediaItem &show);

    // ---- MainWindowOpen.cpp: files and addresses ----

    /// Opens absolute paths and URLs, as openAddress() makes them. The first film or stream plays,
    /// the others follow when it ends; a playlist opens the form of a new source, once no other
    /// dialog is open. What cannot be opened is told in a box.
    void open(const QStringList &addresses);
    /// Opens what a later start of the program was given, and comes to the front.
    void takeOver(const StartRequest &request);

    // ---- MainWindowPlayer.cpp: the player ----

    /// Plays an entry. A show, and an entry without a URL, change nothing.
    void playMediaItem(const MediaItem &item);

public Q_SLOTS:
    // ---- MainWindowEditing.cpp, MainWindow.cpp ----
    void addSource();
    void editSource();
    void refreshActiveSource();
    void checkAutoRefresh();
    void onSourceSelected(int index);

    // ---- MainWindowBrowse.cpp ----
    void filterLive();
    void filterMovies();
    void filterSeries();
    void filterChannels();
    void selectLiveCategory(QListWidgetItem *item);
    void selectMovieCategory(QListWidgetItem *item);
    void selectSeriesCategory(QListWidgetItem *item);
    void selectChannelCategory(QListWidgetItem *item);
    void playLiveRow(int row, int column);
    void playMovieRow(int row, int column);
    void openSeriesRow(int row, int column);
    void playChannelRow(int row, int column);

    // ---- MainWindowPlayer.cpp ----
    void togglePlayPause();
    void toggleFullscreen();
    void onVolumeChanged(int value);
    void onPlaybackError(const QString &message);
    void onPlaybackInterrupted(const QString &reason);
    void onPositionChanged(qint64 currentMs, qint64 totalMs);
    void onSeekSliderPressed();
    void onSeekSliderReleased();
    void showStreamInfo();
    void loadSubtitleFile();
    void showSubtitleMenu();
    void showAudioMenu();

protected:
    void closeEvent(QCloseEvent *event) override;
    bool event(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    // ---- MainWindow.cpp ----
    void createSourceBar();
    void createPlayer();
    void fillSourceBar();
    void restoreSources();
    void showTabsFor(qint32 sourceType);
    void resetBrowseTabs();
    /// Brings the tabs to what they are before the first source.
    void emptyBrowseTabs();
    std::optional<SourceConfig> storedSource(const QString &name) const;

    // ---- MainWindowEditing.cpp ----
    /// Adds what the form of a new source holds, once the user accepts it.
    void addSourceBy(SourceDialog &dialog);
    bool checkDialogResult(const SourceConfig &config, const QString &title);
    bool storeCopy(SourceConfig &config, const QString &title);
    void showSourceOptions();
    void deleteSource(const QString &name);
    void showRemainingSources();
    void replaceSourceAt(int index, const QString &oldName, const SourceConfig &edited);
    void forgetLastSource();

    // ---- MainWindowOpen.cpp: files and addresses ----
    void createOpening();
    void askForFirstSource();
    void openFile();
    void openLocation();
    /// Shows the forms and boxes that wait, unless a dialog is open.
    void showWaitingDialogs();
    void offerPlaylist(const OpenTarget &playlist);
    /// Tells why something could not be opened, once no dialog is open.
    void tellProblem(const QString &title, const QString &problem);
    /// Plays them one after the other, as a list that belongs to no source.
    void playOpened(const QList<OpenTarget> &targets);
    bool playsOpened() const;

    // ---- MainWindowSources.cpp: what the loader reports ----
    void createCatalogLoader(const QString &subscriptionBaseUrl);
    void reportLoadFailure(const LoadFailure &failure);

    // ---- MainWindowBrowse.cpp ----
    void buildTabs();
    void addEpisodePage();
    BrowseTab &browseTab(CatalogSection section) const;
    void playEntry(CatalogSection section, const MediaItem &item);
    void openShow(const MediaItem &show);

    // ---- MainWindowSeries.cpp ----
    void openEpisodes(const QString &seriesId, const QString &seriesName);
    void fillEpisodePage(const QString &source, const QString &seriesId,
                         const QList<Episode> &episodes, const XtreamAccount &account);
    /// Plays an episode of the show whose page is open.
    void playEpisode(int index);

    // ---- MainWindowResume.cpp ----
    void createResumeKeeper();
    /// How far the entry was watched is kept under this; none for what has no place to resume.
    std::optional<Progress> keptProgress(const MediaItem &item, const LibraryEntry &entry) const;
    void continueOpenShow();
    void markEpisodes(const QList<Progress> &episodes, bool watched);
    /// Brings the marks of the page and the shows' own marks up to date.
    void updateEpisodeMarks();
    /// What plays belongs to the source under its new name, or to none when that is empty.
    void moveWhatPlays(const QString &from, const QString &to);

    // ---- MainWindowPlayer.cpp ----
    /// As playMediaItem(); `entry` is the library's name for it. False when nothing changes.
    bool startPlaying(const MediaItem &item, const LibraryEntry &entry, const EntryOrigin &origin);
    /// What the streams of the active source are asked of.
    EntryOrigin currentOrigin() const;
    void setBrowsingVisible(bool visible);

    // ---- MainWindowPicture.cpp: the list that plays, and what keys do with the picture ----
    void createPlayingList();
    std::optional<PlayingPlace> placeOf(CatalogSection section, const MediaItem &item) const;
    /// Plays the entry at that place; nothing for none.
    void playPlace(const std::optional<PlayingPlace> &place);
    /// The next and the previous entry of the list, or episode of the show, that plays.
    /// PlaybackSession::entryChanged() and PlayingList::changed() tell when there may be others.
    /// @{
    bool hasNextEntry() const;
    bool hasPreviousEntry() const;
    void playNextEntry();
    void playPreviousEntry();
    /// @}
    void playLastChannel();
    void playChannelNumber(int number);

    // ---- MainWindowLibrary.cpp: what the user keeps ----
    void createLibrary();
    void createHistory();
    void showLibraryOf(const QString &sourceName);
    void followPlaylist(const QList<MediaItem> &channels);
    /// Of the current row of the list that has the focus; otherwise of what plays.
    void toggleFavorite();
    void markShow(const MediaItem &show, bool watched);
    void markEpisodesOfShow(const LibraryEntry &show, const QList<Episode> &episodes, bool watched);
    /// Shows for six seconds what was removed, with a button that takes the change back; nothing
    /// when there is none. `inverse` is what a change of the library returned.
    void offerUndo(const QString &text, const LibraryChange &inverse);

    // ---- MainWindowMore.cpp: the menu "More" ----
    void createMoreMenu();
    void clearHistory();
    void backUp();
    void restoreBackup();
    bool restore(const RestorePlan &plan);
    void showRestoredSources(const std::optional<SourceConfig> &activeBefore);
    bool hasAccount() const;
    void showAccountInformation();
    void showAbout();

    // ---- MainWindowGuide.cpp: the programme guide ----
    void createGuide();
    void showGuide(bool on);
    void showGuideDialog();
    /// `onNow` is what is known to run on the channel.
    void fillGuideMenu(QMenu &menu, const MediaItem &channel, const std::optional<OnNow> &onNow);
    void chooseGuideChannel(const MediaItem &channel);
    /// Whether the channel that plays belongs to the guide of the active source.
    bool playsGuideChannel() const;
    /// Tells under what plays what runs there.
    void showWhatRuns();

    // ---- MainWindowSchedule.cpp: schedules, archives and reminders ----
    void createSchedules();
    void playGuideChannel(const MediaItem &channel);
    /// The schedule of an entry of the active source.
    void showSchedule(const MediaItem &channel);
    void askAccountForSchedule(const MediaItem &channel, ScheduleDialog *dialog);
    void openProgramme(const MediaItem &channel, const GuideProgramme &programme);
    void createCatchUp();
    void playFromArchive(const MediaItem &channel, const CatchUpRules &archive,
                         const GuideProgramme &programme);
    void createReminders();
    void watch(const Reminder &reminder);
    void watchWhenLoaded();

    // ---- MainWindowDesktop.cpp: the desktop, and what is remembered of the window ----
    void createDesktop();
    void restoreWindow();
    void rememberWindow();

    // Members, grouped by the same files.

    // ---- MainWindow.cpp ----
    SourceManager *sourceManager = nullptr;
    CatalogLoader *catalogLoader = nullptr;
    /// The active source; an empty name means none.
    SourceConfig currentSource = defaultSourceConfig();
    QTimer *autoRefreshTimer = nullptr;
    SourceBar *sourceBar = nullptr;
    QVBoxLayout *centralLayout = nullptr;
    QSplitter *splitter = nullptr;
    LoadingOverlay *loadingOverlay = nullptr;

    // ---- MainWindowLibrary.cpp ----
    Library *library = nullptr;
    QList<TabLibrary *> tabLibraries; ///< in the order of CatalogSection
    UndoBar *undoBar = nullptr;
    QTimer *watchedTimer = nullptr;
    bool isNoted = false; ///< what plays is among what was watched
    /// What plays, or played last; of an episode its show. Its source need not be the active one.
    LibraryEntry playingEntry;

    // ---- MainWindowPicture.cpp ----
    PlayingList *playingList = nullptr;
    EntryOrigin playingOrigin; ///< of what startPlaying() played last

    // ---- MainWindowGuide.cpp ----
    SourceGuide *sourceGuide = nullptr;
    OnNowLines *playingLine = nullptr; ///< while the guide is on
    MediaItem playingChannel;          ///< what startPlaying() played last

    // ---- MainWindowSchedule.cpp ----
    ServerZones *serverZones = nullptr;
    CatchUpPlayer *catchUp = nullptr;
    MediaItem archiveChannel;  ///< what `catchUp` was told to play
    LibraryEntry archiveEntry; ///< the same, of the source that was shown then
    PlayingPlace archivePlace; ///< where it stands; without entries when it is in no list
    ReminderKeeper *reminders = nullptr;
    QPointer<ScheduleDialog> scheduleDialog;
    std::optional<Reminder> channelToWatch; ///< of a source whose catalog is not there yet

    // ---- MainWindowDesktop.cpp ----
    DesktopControls *desktopControls = nullptr;
    WindowMemory windowMemory;
    QTimer *rememberTimer = nullptr; ///< runs while the user arranges the window

    // ---- MainWindowOpen.cpp ----
    bool isAskedToOpen = false;         ///< instead of the form for the first source
    QList<OpenTarget> playlistsToOffer; ///< once no dialog is open
    QStringList openingProblems;        ///< to be told then
    bool openedHasPlayed = false;       ///< what was opened has made progress
    QString openFolder;                 ///< of the file that was opened last
    QStringList draggedAddresses;       ///< of what is dragged over the window

    // ---- MainWindowBrowse.cpp ----
    QTabWidget *tabs = nullptr;
    QList<BrowseTab *> browseTabs; ///< in the order of CatalogSection
    PosterStore *posterStore = nullptr;

    // ---- MainWindowSeries.cpp ----
    EpisodePage *episodePage = nullptr;
    EpisodeQueue episodeQueue;
    /// The id of the show that goes on when its episodes are there.
    QString showToContinue;

    // ---- MainWindowResume.cpp ----
    ResumeKeeper *resumeKeeper = nullptr;
    bool updatingEpisodeMarks = false;

    // ---- MainWindowPlayer.cpp ----
    VlcPlayer *player = nullptr;
    PlaybackSession *session = nullptr;
    static constexpr int centralMargin = 6;
    PlayerPanel *playerPanel = nullptr;
    FullscreenChrome *fullscreenChrome = nullptr;
    PlaybackErrorBox errorBox;
};
