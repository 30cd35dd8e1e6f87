#include "guide/CatchUp.h"
#include "guide/Guide.h"
#include "guide/PlaylistGuideClient.h"
#include "library/Library.h"
#include "ui/BrowseTab.h"
#include "ui/GuideChannelDialog.h"
#include "ui/GuideDialog.h"
#include "ui/GuideTexts.h"
#include "ui/MainWindow.h"
#include "ui/OnNowLines.h"
#include "ui/PlaybackSession.h"
#include "ui/PlayerPanel.h"
#include "ui/ScheduleDialog.h"
#include "ui/SourceGuide.h"

#include <QDateTime>
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
            [this, section](QMenu &menu, const MediaItem &channel) {
                fillGuideMenu(menu, channel, browseTab(section).onNow(channel));
            });
    }
    createSchedules();
    connect(session, &PlaybackSession::started, this, &MainWindow::showWhatRuns);
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
    PlaylistGuideClient client(&dialog);
    if (!SourceType::isAccount(currentSource.type)) {
        client.fetch(currentSource.url, currentSource.userAgent,
                     [&dialog](const std::optional<PlaylistGuide> &guide) {
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

void MainWindow::fillGuideMenu(QMenu &menu, const MediaItem &channel,
                               const std::optional<OnNow> &onNow)
{
    if (!sourceGuide->isOn()) {
        return;
    }
    menu.addSeparator();
    if (onNow && onNow->now &&
        archiveHolds(
            onNow->entry.catchUp,
            {onNow->now->start, onNow->now->stop, {}, QDateTime::currentSecsSinceEpoch()})) {
        menu.addAction(tr("Watch from Start"), this, [this, channel, onNow] {
            playFromArchive(channel, onNow->entry.catchUp, *onNow->now);
        });
    }
    menu.addAction(tr("Schedule"), this, [this, channel] { showSchedule(channel); });
    menu.addAction(tr("Guide Channel..."), this, [this, channel] { chooseGuideChannel(channel); });
}

void MainWindow::chooseGuideChannel(const MediaItem &channel)
{
    const auto choose = [this, channel](const QHash<QString, OnNow> &answer) {
        const LibraryEntry entry =
            libraryEntry(sourceGuide->source().name, sourceGuide->kind(), channel);
        const auto &corrections = library->guideCorrections(entry.source, entry.kind);
        const auto before = corrections.contains(entry.id)
                                ? std::optional(corrections.value(entry.id))
                                : std::nullopt;
        GuideChannelDialog dialog(sourceGuide->guide(), entry, answer.value(entry.id).entry.match,
                                  before, this);
        if (dialog.exec() != QDialog::Accepted || dialog.correction() == before ||
            entry.source != sourceGuide->source().name) {
            return;
        }
        if (const auto correction = dialog.correction()) {
            sourceGuide->setCorrection(channel, correction->guideId);
        } else {
            sourceGuide->removeCorrection(channel);
        }
    };
    sourceGuide->guide()->fetchOnNow({channel.id.toString()}, QDateTime::currentSecsSinceEpoch(),
                                     choose);
}
