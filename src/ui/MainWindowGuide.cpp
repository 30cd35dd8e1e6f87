#include "guide/Guide.h"
#include "guide/PlaylistGuideClient.h"
#include "library/Library.h"
#include "ui/BrowseTab.h"
#include "ui/GuideDialog.h"
#include "ui/GuideTexts.h"
#include "ui/MainWindow.h"
#include "ui/OnNowLines.h"
#include "ui/PlaybackSession.h"
#include "ui/PlayerPanel.h"
#include "ui/ScheduleDialog.h"
#include "ui/SourceGuide.h"

#include <QMenu>

#include <utility>

namespace {

QString clock(qint64 time)
{
    return clockText(time, QTimeZone::systemTimeZone());
}

} // namespace

void MainWindow::createGuide()
{
    sourceGuide = new SourceGuide(library, this);
    connect(sourceGuide, &SourceGuide::turned, this, &MainWindow::showGuide);
    for (const CatalogSection section : {CatalogSection::Live, CatalogSection::Channel}) {
        browseTab(section).setEntryMenuExtension(
            [this](QMenu &menu, const MediaItem &channel) { fillGuideMenu(menu, channel); });
    }
    connect(playerPanel, &PlayerPanel::scheduleRequested, this, [this] {
        if (playsGuideChannel()) {
            showSchedule(playingChannel);
        }
    });
    connect(session, &PlaybackSession::entryChanged, this, &MainWindow::showWhatRuns);
    connect(session, &PlaybackSession::stopped, this, &MainWindow::showWhatRuns);
}

void MainWindow::showGuide(bool on)
{
    for (const CatalogSection section : {CatalogSection::Live, CatalogSection::Channel}) {
        browseTab(section).setGuide(on ? sourceGuide->guide() : nullptr);
    }
    playerPanel->setScheduleAvailable(on);
    delete std::exchange(playingLine, nullptr);
    if (on) {
        playingLine = new OnNowLines(sourceGuide->guide(), this);
        connect(playingLine, &OnNowLines::changed, this, &MainWindow::showWhatRuns);
    } else if (scheduleDialog) {
        scheduleDialog->close();
    }
    showWhatRuns();
}

bool MainWindow::playsGuideChannel() const
{
    return sourceGuide->isOn() && session->hasMedia() && session->kind() == StreamKind::Live &&
           playingEntry.source == sourceGuide->source().name;
}

void MainWindow::showWhatRuns()
{
    if (!playsGuideChannel()) {
        playerPanel->showOnNow({});
        return;
    }
    playingLine->setVisible({playingEntry.id});
    const OnNow onNow = playingLine->find(playingEntry.id).value_or(OnNow());
    QStringList parts;
    if (onNow.now) {
        parts << tr("%1 until %2").arg(onNow.now->title, clock(onNow.now->stop));
    }
    if (onNow.next) {
        parts << tr("Next: %1 %2").arg(clock(onNow.next->start), onNow.next->title);
    }
    playerPanel->showOnNow(parts.join(QStringLiteral(" \u00b7 ")));
}

// ---- settings ----

void MainWindow::showGuideDialog()
{
    GuideDialog dialog(sourceGuide->settings(), SourceType::isAccount(currentSource.type), this);
    dialog.setResult(sourceGuide->lastResult());
    dialog.setUpdating(sourceGuide->isUpdating());
    connect(&dialog, &GuideDialog::updateRequested, this,
            [this, &dialog](const GuideSettings &settings) {
                sourceGuide->update(settings);
                dialog.setUpdating(true);
            });
    connect(&dialog, &GuideDialog::cancelRequested, sourceGuide, &SourceGuide::cancelUpdate);
    connect(sourceGuide, &SourceGuide::progressed, &dialog, &GuideDialog::setProgress);
    connect(sourceGuide, &SourceGuide::updated, &dialog, [&dialog](const GuideResult &result) {
        dialog.setUpdating(false);
        dialog.setResult(result);
    });
    PlaylistGuideClient client(nullptr);
    if (!SourceType::isAccount(currentSource.type) && sourceGuide->settings().addresses.isEmpty()) {
        client.fetch(currentSource.url, [&dialog](const std::optional<PlaylistGuide> &guide) {
            if (guide) {
                dialog.offerPlaylistAddresses(guide->addresses);
            }
        });
    }
    const QString source = currentSource.name;
    if (dialog.exec() == QDialog::Accepted && source == currentSource.name) {
        sourceGuide->setSettings(dialog.settings());
    }
}

// ---- channels ----

void MainWindow::fillGuideMenu(QMenu &menu, const MediaItem &channel)
{
    if (!sourceGuide->isOn()) {
        return;
    }
    menu.addSeparator();
    menu.addAction(tr("Schedule"), this, [this, channel] { showSchedule(channel); });
}

void MainWindow::showSchedule(const MediaItem &channel)
{
    if (scheduleDialog) {
        scheduleDialog->close();
    }
    scheduleDialog = new ScheduleDialog(currentSource.name, channel, sourceGuide->guide(), this);
    connect(scheduleDialog, &ScheduleDialog::playRequested, this, [this, channel] {
        playEntry(SourceType::isAccount(currentSource.type) ? CatalogSection::Live
                                                            : CatalogSection::Channel,
                  channel);
    });
    scheduleDialog->show();
}
