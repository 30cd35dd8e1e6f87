#include "ui/TrackMenus.h"

#include "player/VlcPlayer.h"

#include <QActionGroup>
#include <QFileDialog>
#include <QMenu>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

/// A menu text that shows `name` as it is: menus read a single "&" as a mnemonic.
QString menuText(QString name)
{
    return name.replace(u'&', "&&"_L1);
}

QAction *addChoice(QMenu &menu, QActionGroup &group, const QString &text, bool current)
{
    QAction *action = menu.addAction(menuText(text));
    action->setCheckable(true);
    action->setChecked(current);
    group.addAction(action);
    return action;
}

void execAbove(QMenu &menu, const QPushButton *button)
{
    menu.exec(button->mapToGlobal(QPoint(0, -menu.sizeHint().height())));
}

} // namespace

void TrackMenus::execSubtitleMenu(VlcPlayer *player, const QPushButton *button)
{
    QMenu menu(button->window());
    QActionGroup group(&menu);
    const int current = player->currentSubtitleTrack();
    QObject::connect(addChoice(menu, group, tr("Disable"), current < 0), &QAction::triggered,
                     player, [player] { player->setSubtitleTrack(-1); });
    const QList<VlcPlayer::Track> tracks = player->subtitleTracks();
    if (!tracks.isEmpty()) {
        menu.addSeparator();
    }
    for (const auto &[id, name] : tracks) {
        QObject::connect(addChoice(menu, group, name, id == current), &QAction::triggered, player,
                         [player, trackId = id] { player->setSubtitleTrack(trackId); });
    }
    menu.addSeparator();
    QObject::connect(menu.addAction(tr("Load Subtitle File...")), &QAction::triggered, player,
                     [player, button] { loadSubtitleFile(player, button->window()); });
    execAbove(menu, button);
}

void TrackMenus::execAudioMenu(VlcPlayer *player, const QPushButton *button)
{
    QMenu menu(button->window());
    QActionGroup group(&menu);
    const int current = player->currentAudioTrack();
    const QList<VlcPlayer::Track> tracks = player->audioTracks();
    for (const auto &[id, name] : tracks) {
        QObject::connect(addChoice(menu, group, name, id == current), &QAction::triggered, player,
                         [player, trackId = id] { player->setAudioTrack(trackId); });
    }
    if (tracks.isEmpty()) {
        menu.addAction(tr("No audio tracks"))->setEnabled(false);
    }
    execAbove(menu, button);
}

void TrackMenus::loadSubtitleFile(VlcPlayer *player, QWidget *parent)
{
    const QString path = QFileDialog::getOpenFileName(
        parent, tr("Load Subtitle File"), {},
        tr("Subtitles (*.srt *.ass *.ssa *.sub *.vtt);;All Files (*)"));
    if (!path.isEmpty()) {
        player->loadSubtitleFile(path);
    }
}
