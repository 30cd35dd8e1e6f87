#include "ui/MainWindow.h"

#include "player/VlcPlayer.h"

#include <QActionGroup>
#include <QBoxLayout>
#include <QDialog>
#include <QFileDialog>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

/// A menu text that shows `name` as it is: menus read a single "&" as a key mark.
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

} // namespace

void MainWindow::showSubtitleMenu()
{
    QMenu menu(this);
    QActionGroup group(&menu);
    const int current = player->currentSubtitleTrack();
    connect(addChoice(menu, group, tr("Disable"), current < 0), &QAction::triggered, this,
            [this] { player->setSubtitleTrack(-1); });
    const QList<VlcPlayer::Track> tracks = player->subtitleTracks();
    if (!tracks.isEmpty()) {
        menu.addSeparator();
    }
    for (const auto &[id, name] : tracks) {
        connect(addChoice(menu, group, name, id == current), &QAction::triggered, this,
                [this, trackId = id] { player->setSubtitleTrack(trackId); });
    }
    menu.addSeparator();
    connect(menu.addAction(tr("Load Subtitle File...")), &QAction::triggered, this,
            &MainWindow::loadSubtitleFile);
    execMenuAbove(menu, subtitlesButton);
}

void MainWindow::showAudioMenu()
{
    QMenu menu(this);
    QActionGroup group(&menu);
    const int current = player->currentAudioTrack();
    const QList<VlcPlayer::Track> tracks = player->audioTracks();
    for (const auto &[id, name] : tracks) {
        connect(addChoice(menu, group, name, id == current), &QAction::triggered, this,
                [this, trackId = id] { player->setAudioTrack(trackId); });
    }
    if (tracks.isEmpty()) {
        menu.addAction(tr("No audio tracks"))->setEnabled(false);
    }
    execMenuAbove(menu, audioButton);
}

void MainWindow::execMenuAbove(QMenu &menu, const QPushButton *button)
{
    menu.exec(button->mapToGlobal(QPoint(0, -menu.sizeHint().height())));
}

void MainWindow::loadSubtitleFile()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Load Subtitle File"), {},
        tr("Subtitles (*.srt *.ass *.ssa *.sub *.vtt);;All Files (*)"));
    if (!path.isEmpty()) {
        player->loadSubtitleFile(path);
    }
}

void MainWindow::showStreamInfo()
{
    auto *dialog = new QDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Stream Info"));
    dialog->setMinimumSize(440, 340);
    auto *text = new QPlainTextEdit(player->mediaInfoText());
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setAccessibleName(tr("Stream Info"));
    auto *refresh = new QPushButton(tr("Refresh"));
    connect(refresh, &QPushButton::clicked, text,
            [this, text] { text->setPlainText(player->mediaInfoText()); });
    auto *layout = new QVBoxLayout(dialog);
    layout->addWidget(text, 1);
    layout->addWidget(refresh);
    dialog->show();
}
