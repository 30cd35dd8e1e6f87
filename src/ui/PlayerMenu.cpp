#include "ui/PlayerMenu.h"

#include "player/VlcPlayer.h"
#include "ui/PlayerCommands.h"
#include "ui/PlayerPanel.h"
#include "ui/RowMenu.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QMenu>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

QString text(const char *english)
{
    return QCoreApplication::translate("PlayerMenu", english);
}

/// A line with its key behind the name; as a second shortcut the key would be ambiguous.
QAction *addLine(QMenu &menu, const QString &name, const QKeySequence &key)
{
    return menu.addAction(name + u'\t' + key.toString(QKeySequence::NativeText));
}

/// A line of a command that the panel's rows have.
void addOfRows(QMenu &menu, const QString &name, Qt::Key key, PlayerPanel *panel,
               void (PlayerPanel::*run)())
{
    QObject::connect(addLine(menu, name, key), &QAction::triggered, panel, run);
}

/// A line of its own: Qt tells the desktop's assistive tools of an action in the first menu only.
void addCommand(QMenu &menu, QAction *command)
{
    QAction *line = addLine(menu, command->text(), command->shortcut());
    line->setCheckable(command->isCheckable());
    line->setChecked(command->isChecked());
    QObject::connect(line, &QAction::triggered, command, &QAction::trigger);
}

void addCommands(QMenu &menu, const PlayerCommands &commands, const QList<PlayerCommand> &which)
{
    for (const PlayerCommand command : which) {
        addCommand(menu, commands.action(command));
    }
}

using Choose = std::function<void(const PictureChoice &)>;

/// The choices, the current one checked, below the command that goes to the next one.
void addChoices(QMenu &menu, QAction *next, const QList<PictureChoice> &choices,
                const QString &current, const Choose &choose)
{
    addCommand(menu, next);
    menu.addSeparator();
    auto *group = new QActionGroup(&menu);
    for (const PictureChoice &choice : choices) {
        QAction *action = group->addAction(choice.name);
        action->setCheckable(true);
        action->setChecked(choice.value == current);
        QObject::connect(action, &QAction::triggered, &menu, [choose, choice] { choose(choice); });
        menu.addAction(action);
    }
}

void fillPictureMenus(QMenu &menu, PlayerCommands *commands, const VlcPlayer &player)
{
    addChoices(*menu.addMenu(text(QT_TRANSLATE_NOOP("PlayerMenu", "Aspect Ratio"))),
               commands->action(PlayerCommand::NextAspectRatio), commands->aspectRatios(),
               player.picture().aspectRatio,
               [commands](const PictureChoice &choice) { commands->setAspectRatio(choice); });
    addChoices(*menu.addMenu(text(QT_TRANSLATE_NOOP("PlayerMenu", "Crop"))),
               commands->action(PlayerCommand::NextCrop), commands->crops(), player.picture().crop,
               [commands](const PictureChoice &choice) { commands->setCrop(choice); });
    addChoices(*menu.addMenu(text(QT_TRANSLATE_NOOP("PlayerMenu", "Zoom"))),
               commands->action(PlayerCommand::NextZoom), commands->zooms(),
               commands->currentZoom(),
               [commands](const PictureChoice &choice) { commands->setZoom(choice); });
}

void fillMenu(QMenu &menu, PlayerPanel *panel, PlayerCommands *commands, const VlcPlayer &player)
{
    using Command = PlayerCommand;
    addOfRows(menu, text(QT_TRANSLATE_NOOP("PlayerMenu", "Pause or Play")), Qt::Key_Space, panel,
              &PlayerPanel::togglePlayPause);
    addOfRows(menu, text(QT_TRANSLATE_NOOP("PlayerMenu", "Fullscreen")), Qt::Key_F, panel,
              &PlayerPanel::fullscreenToggled);
    addCommands(menu, *commands, {Command::SmallWindow, Command::AlwaysOnTop});
    menu.addSeparator();
    addCommands(menu, *commands,
                {Command::NextEntry, Command::PreviousEntry, Command::LastChannel});
    menu.addSeparator();
    addCommands(menu, *commands, {Command::NextAudioTrack, Command::NextSubtitleTrack});
    QMenu *speed = menu.addMenu(text(QT_TRANSLATE_NOOP("PlayerMenu", "Speed")));
    addCommands(*speed, *commands, {Command::Slower, Command::Faster, Command::NormalSpeed});
    QMenu *delays = menu.addMenu(text(QT_TRANSLATE_NOOP("PlayerMenu", "Delays")));
    addCommands(*delays, *commands,
                {Command::SoundEarlier, Command::SoundLater, Command::SubtitlesEarlier,
                 Command::SubtitlesLater});
    menu.addSeparator();
    fillPictureMenus(menu, commands, player);
    addCommands(menu, *commands, {Command::Deinterlace, Command::Snapshot});
}

} // namespace

void addPlayerMenu(PlayerPanel *panel, PlayerCommands *commands, VlcPlayer *player)
{
    // The surface leaves what it does not handle to the panel, which also gets the menu key.
    panel->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(panel, &QWidget::customContextMenuRequested, commands,
                     [panel, commands, player](const QPoint &place) {
                         openRowMenu(panel, panel->mapToGlobal(place), [&](QMenu &menu) {
                             fillMenu(menu, panel, commands, *player);
                         });
                     });
}
