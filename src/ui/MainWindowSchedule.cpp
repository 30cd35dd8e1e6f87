#include "guide/CatchUp.h"
#include "guide/Guide.h"
#include "guide/GuideClient.h"
#include "guide/ServerZones.h"
#include "library/Library.h"
#include "providers/CatalogLoader.h"
#include "providers/XtreamClient.h"
#include "ui/BrowseTab.h"
#include "ui/CatchUpPlayer.h"
#include "ui/EntryUrl.h"
#include "ui/MainWindow.h"
#include "ui/PlainMessageBox.h"
#include "ui/PlaybackSession.h"
#include "ui/PlayerPanel.h"
#include "ui/ReminderKeeper.h"
#include "ui/ResumeKeeper.h"
#include "ui/ScheduleDialog.h"
#include "ui/SourceBar.h"
#include "ui/SourceGuide.h"

#include <QDateTime>

// A channel's schedule, and what can be done with its programmes.

void MainWindow::createSchedules()
{
    for (const CatalogSection section : {CatalogSection::Live, CatalogSection::Channel}) {
        connect(&browseTab(section), &BrowseTab::programmeActivated, this,
                &MainWindow::openProgramme);
        connect(&browseTab(section), &BrowseTab::scheduleRequested, this,
                [this](const MediaItem &channel, const GuideProgramme &programme) {
                    showSchedule(channel);
                    scheduleDialog->showProgramme(programme.start);
                });
    }
    connect(playerPanel, &PlayerPanel::scheduleRequested, this, [this] {
        const bool isChannel =
            session->kind() == StreamKind::Live || session->kind() == StreamKind::Archive;
        if (sourceGuide->isOn() && session->hasMedia() && isChannel &&
            playingEntry.source == sourceGuide->source().name) {
            showSchedule(playingChannel);
        }
    });
    createCatchUp();
    createReminders();
}

void MainWindow::playGuideChannel(const MediaItem &channel)
{
    playEntry(SourceType::isAccount(currentSource.type) ? CatalogSection::Live
                                                        : CatalogSection::Channel,
              channel);
}

void MainWindow::showSchedule(const MediaItem &channel)
{
    if (scheduleDialog) {
        scheduleDialog->close();
    }
    const LibraryEntry entry = libraryEntry(currentSource.name, sourceGuide->kind(), channel);
    auto *dialog = new ScheduleDialog(currentSource.name, channel, sourceGuide->guide(), this);
    scheduleDialog = dialog;
    dialog->setReminders(reminders->startsOf(entry));
    connect(dialog, &ScheduleDialog::nothingKnown, this,
            [this, channel, dialog] { askAccountForSchedule(channel, dialog); });
    connect(dialog, &ScheduleDialog::playRequested, this,
            [this, channel] { playGuideChannel(channel); });
    connect(dialog, &ScheduleDialog::archiveRequested, this,
            [this, channel, dialog](const GuideProgramme &programme) {
                playFromArchive(channel, dialog->archive(), programme);
            });
    connect(
        dialog, &ScheduleDialog::reminderToggled, this,
        [this, entry](const GuideProgramme &programme) { reminders->toggle(entry, programme); });
    connect(library, &Library::changed, dialog, [this, entry, dialog](LibraryPart part) {
        if (part == LibraryPart::Reminders) {
            dialog->setReminders(reminders->startsOf(entry));
        }
    });
    dialog->show();
}

/// Of a channel that the guide does not know, an account may tell the schedule.
void MainWindow::askAccountForSchedule(const MediaItem &channel, ScheduleDialog *dialog)
{
    if (!SourceType::isAccount(currentSource.type) || catalogLoader->accountClient() == nullptr) {
        return;
    }
    const XtreamAccount account = catalogLoader->accountClient()->account();
    const QPointer<ScheduleDialog> shown(dialog);
    serverZones->find(account, [account, channel, shown](const QTimeZone &zone) {
        if (!shown) {
            return;
        }
        auto *client = new GuideClient(account, zone, shown);
        client->fetchFull(channel.id, [shown, client](const GuideClient::Schedule &schedule) {
            client->deleteLater();
            QList<GuideProgramme> programmes;
            for (const ScheduledProgramme &one : schedule.value_or(QList<ScheduledProgramme>())) {
                programmes.append({one.start, one.stop, one.title, one.description});
            }
            if (!programmes.isEmpty()) {
                shown->setProgrammes(programmes);
            }
        });
    });
}

/// A programme of the grid that does not run now: from the archive where that holds it, otherwise
/// in the channel's schedule.
void MainWindow::openProgramme(const MediaItem &channel, const GuideProgramme &programme)
{
    sourceGuide->guide()->fetchOnNow(
        {channel.id.toString()}, programme.start,
        [this, channel, programme](const QHash<QString, OnNow> &answer) {
            const CatchUpRules archive = answer.value(channel.id).entry.catchUp;
            if (archiveHolds(
                    archive,
                    {programme.start, programme.stop, {}, QDateTime::currentSecsSinceEpoch()})) {
                playFromArchive(channel, archive, programme);
            } else {
                showSchedule(channel);
                scheduleDialog->showProgramme(programme.start);
            }
        });
}

// ---- archives ----

void MainWindow::createCatchUp()
{
    serverZones = new ServerZones(this);
    catchUp = new CatchUpPlayer(session, serverZones, this);
    connect(catchUp, &CatchUpPlayer::aboutToPlay, this, [this] {
        // The channel counts as watched; a recording keeps no place.
        playingChannel = archiveChannel;
        playingEntry = archiveEntry;
        channelToWatch.reset();
        episodeQueue.clear();
        if (archivePlace.entries.count() > 0) {
            playingList->setPlaying(archivePlace);
        } else {
            playingList->clear();
        }
        resumeKeeper->follow({});
    });
    connect(catchUp, &CatchUpPlayer::formWorked, this,
            [this](const QString &source, AccountArchiveForm form) {
                GuideSettings settings = library->guideSettings(source);
                settings.source = source;
                settings.archiveForm = static_cast<qint32>(form);
                library->setGuideSettings(settings);
            });
    connect(catchUp, &CatchUpPlayer::failed, this, [this](const QString &message) {
        PlainMessageBox::warn(this, tr("Playback Error"), message);
    });
}

void MainWindow::playFromArchive(const MediaItem &channel, const CatchUpRules &archive,
                                 const GuideProgramme &programme)
{
    ArchiveChannel wanted;
    wanted.source = currentSource.name;
    wanted.name = channel.name;
    wanted.streamId = channel.id;
    wanted.streamUrl = entryUrl(channel, currentOrigin());
    wanted.headers = entryHeaders(channel, currentOrigin());
    wanted.archive = archive;
    wanted.liveExtension = currentSource.liveExtension;
    if (SourceType::isAccount(currentSource.type) && catalogLoader->accountClient() != nullptr) {
        wanted.account = catalogLoader->accountClient()->account();
    }
    if (const qint32 form = sourceGuide->settings().archiveForm; form >= 0) {
        wanted.workedForm = static_cast<AccountArchiveForm>(form);
    }
    archiveChannel = channel;
    archiveEntry = libraryEntry(currentSource.name, sourceGuide->kind(), channel);
    const auto section = static_cast<CatalogSection>(sourceGuide->kind());
    archivePlace = placeOf(section, channel).value_or(PlayingPlace());
    catchUp->play(wanted, programme);
    playerPanel->setFocus(Qt::OtherFocusReason);
}

// ---- reminders ----

void MainWindow::createReminders()
{
    reminders = new ReminderKeeper(library, this, this);
    connect(reminders, &ReminderKeeper::watchRequested, this, &MainWindow::watch);
}

/// Plays the channel of a reminder, after its source where that is not the active one.
void MainWindow::watch(const Reminder &reminder)
{
    channelToWatch = reminder;
    const int index = sourceBar->indexOf(reminder.source);
    if (reminder.source != currentSource.name && index >= 0) {
        sourceBar->setCurrentIndex(index);
    }
    watchWhenLoaded();
}

/// Plays the channel that is to be watched, once the catalog of its source is there.
void MainWindow::watchWhenLoaded()
{
    if (!channelToWatch || channelToWatch->source != currentSource.name) {
        return;
    }
    const CatalogSection section =
        channelToWatch->kind == EntryKind::Live ? CatalogSection::Live : CatalogSection::Channel;
    if (const auto channel = browseTab(section).entryOf(channelToWatch->entryId)) {
        channelToWatch.reset();
        playEntry(section, *channel);
    }
}
