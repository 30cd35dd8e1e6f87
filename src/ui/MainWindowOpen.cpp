#include "desktop/OpenTarget.h"
#include "desktop/SingleInstance.h"
#include "desktop/WindowActivation.h"
#include "model/SourceManager.h"
#include "player/VlcPlayer.h"
#include "ui/MainWindow.h"
#include "ui/OpenLocationDialog.h"
#include "ui/PlainMessageBox.h"
#include "ui/PlaybackSession.h"
#include "ui/SourceDialog.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QStandardPaths>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// More of them would make the box higher than the screen.
constexpr qsizetype maxProblems = 10;

/// The files that can be opened, as a file dialog takes them.
QString filePatterns()
{
    QStringList patterns;
    const QStringList suffixes = playlistSuffixes() + filmSuffixes() + QStringList{u"ts"_s};
    for (const QString &suffix : suffixes) {
        patterns << "*."_L1 + suffix;
    }
    return patterns.join(u' ');
}

/// `name` itself, or with a number: a source of an equal name would be replaced.
QString freeName(const QString &name, const QStringList &taken)
{
    QString free = name;
    for (int number = 2; taken.contains(free); ++number) {
        free = name + u' ' + QString::number(number);
    }
    return free;
}

/// What the target may do with what can be opened; never move the file away.
Qt::DropAction dropActionFor(const QDropEvent &event)
{
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::LinkAction}) {
        if (event.possibleActions().testFlag(action)) {
            return action;
        }
    }
    return Qt::IgnoreAction;
}

} // namespace

void MainWindow::createOpening()
{
    setAcceptDrops(true);
    openFolder = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    connect(session, &PlaybackSession::starting, this, [this] { openedHasPlayed = false; });
    connect(player, &VlcPlayer::playbackProgressing, this, [this] { openedHasPlayed = true; });
    connect(player, &VlcPlayer::finished, this, [this] {
        if (!playsOpened()) {
            return;
        }
        // Of what is no film libVLC reports the end at once, without a length.
        if (!openedHasPlayed && player->lengthMs() < 1) {
            tellProblem(session->title(), tr("It is not a film or a stream that can be played."));
        }
        playNextEntry();
    });
}

void MainWindow::askForFirstSource()
{
    if (!isAskedToOpen) {
        addSource();
    }
}

void MainWindow::open(const QStringList &addresses)
{
    QList<OpenTarget> toPlay;
    for (const QString &address : addresses) {
        isAskedToOpen = true;
        const OpenTarget target = openTarget(address);
        switch (target.kind) {
        case OpenTarget::Kind::Playlist:
            playlistsToOffer << target;
            break;
        case OpenTarget::Kind::Unfit:
            tellProblem(target.title, target.problem);
            break;
        default:
            toPlay << target;
        }
    }
    playOpened(toPlay);
    // Through the event queue: the window may not show yet, or who dropped a file may wait.
    QMetaObject::invokeMethod(this, &MainWindow::showWaitingDialogs, Qt::QueuedConnection);
}

void MainWindow::takeOver(const StartRequest &request)
{
    open(request.addresses);
    if (isMinimized()) {
        setWindowState(windowState() & ~Qt::WindowMinimized);
    }
    raise();
    QWidget *dialog = QApplication::activeModalWidget();
    QWidget *front = dialog != nullptr ? dialog->window() : this;
    ::activateWindow(front->windowHandle(), request.activationToken);
}

void MainWindow::playOpened(const QList<OpenTarget> &targets)
{
    QList<MediaItem> items;
    QList<int> rows;
    for (const OpenTarget &target : targets) {
        MediaItem item;
        item.type = target.kind == OpenTarget::Kind::Film ? StreamKind::Movie : StreamKind::Live;
        item.id = target.address;
        item.name = target.title;
        item.streamUrl = target.address;
        rows << int(items.size());
        items << item;
    }
    if (!items.isEmpty()) {
        EntryOrigin origin;
        origin.isOpened = true;
        playPlace(PlayingPlace{origin, CatalogSection::Movie, {items, rows}, 0});
    }
}

bool MainWindow::playsOpened() const
{
    const auto &place = playingList->playing();
    return place && place->origin.isOpened && session->hasMedia();
}

void MainWindow::openFile()
{
    QFileDialog dialog(this, tr("Open File"), openFolder,
                       tr("Videos and Playlists (%1);;All Files (*)").arg(filePatterns()));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (dialog.exec() == QDialog::Accepted) {
        openFolder = dialog.directory().path();
        open(dialog.selectedFiles());
    }
}

void MainWindow::openLocation()
{
    OpenLocationDialog dialog(this);
    if (dialog.exec() == QDialog::Accepted) {
        open({dialog.address()});
    }
}

void MainWindow::tellProblem(const QString &title, const QString &problem)
{
    openingProblems << (title.isEmpty() ? problem : u"%1: %2"_s.arg(title, problem));
    QMetaObject::invokeMethod(this, &MainWindow::showWaitingDialogs, Qt::QueuedConnection);
}

void MainWindow::showWaitingDialogs()
{
    while (QApplication::activeModalWidget() == nullptr) {
        if (!openingProblems.isEmpty()) {
            const QStringList problems = std::exchange(openingProblems, {});
            PlainMessageBox::warn(this, tr("Open"),
                                  tr("This could not be opened:") + u"\n\n"_s +
                                      problems.mid(0, maxProblems).join(u'\n'));
        } else if (!playlistsToOffer.isEmpty()) {
            offerPlaylist(playlistsToOffer.takeFirst());
        } else {
            return;
        }
    }
}

void MainWindow::offerPlaylist(const OpenTarget &playlist)
{
    QStringList taken;
    for (const SourceConfig &source : sourceManager->sources()) {
        taken << source.name;
    }
    SourceDialog dialog(this, nullptr);
    dialog.fillWithPlaylist(freeName(playlist.title, taken), playlist.address);
    addSourceBy(dialog);
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    draggedAddresses = openAddresses(*event->mimeData());
    const Qt::DropAction action = dropActionFor(*event);
    if (!draggedAddresses.isEmpty() && action != Qt::IgnoreAction) {
        event->setDropAction(action);
        event->accept();
    }
}

void MainWindow::dropEvent(QDropEvent *event)
{
    // On X11 some programs have the data no longer when they are asked for it after the drop.
    const QStringList dropped = openAddresses(*event->mimeData());
    const QStringList before = std::exchange(draggedAddresses, {});
    const QStringList addresses = dropped.isEmpty() ? before : dropped;
    const Qt::DropAction action = dropActionFor(*event);
    if (!addresses.isEmpty() && action != Qt::IgnoreAction) {
        event->setDropAction(action);
        event->accept();
        open(addresses);
        activateWindow();
    }
}
