#include "ui/PlayerCommands.h"

#include "player/VlcPlayer.h"
#include "ui/PictureLine.h"
#include "ui/PlaybackSession.h"
#include "ui/PlayerPanel.h"
#include "ui/SnapshotFile.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QShortcut>
#include <QStandardPaths>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int numberDelayMs = 1500;
constexpr qsizetype longestNumber = 6;
constexpr float speedStep = 0.1F;
constexpr qint64 delayStepMs = 50;

/// The choice after the one with that value; the first one for an unknown value.
PictureChoice after(const QList<PictureChoice> &choices, const QString &value)
{
    const auto found =
        std::find_if(choices.begin(), choices.end(),
                     [&value](const PictureChoice &choice) { return choice.value == value; });
    const auto next = found != choices.end() ? found + 1 : choices.end();
    return next != choices.end() ? *next : choices.constFirst();
}

} // namespace

PlayerCommands::PlayerCommands(PlayerPanel *playerPanel, VlcPlayer *vlcPlayer,
                               PlaybackSession *playbackSession)
    : QObject(playerPanel)
    , panel(playerPanel)
    , player(vlcPlayer)
    , session(playbackSession)
    , numberTimer(new QTimer(this))
{
    addCommands();
    addPictureCommands();
    addDigits();
    connect(player, &VlcPlayer::snapshotTaken, this, [this](const QString &path, bool written) {
        const QFileInfo file(path);
        tell(written ? tr("Picture saved: %1").arg(file.fileName())
                     : tr("The picture could not be saved in %1.")
                           .arg(QDir::toNativeSeparators(file.path())));
    });
}

void PlayerCommands::addCommands()
{
    using Command = PlayerCommand;
    add(Command::NextEntry, tr("Next"), {Qt::Key_PageUp, Qt::Key_N},
        [this] { Q_EMIT nextEntryRequested(); });
    add(Command::PreviousEntry, tr("Previous"), {Qt::Key_PageDown, Qt::Key_P},
        [this] { Q_EMIT previousEntryRequested(); });
    add(Command::LastChannel, tr("Last Channel"), {Qt::Key_Backspace},
        [this] { Q_EMIT lastChannelRequested(); });
    add(Command::Slower, tr("Slower"), {Qt::Key_BracketLeft},
        [this] { changeSpeed(player->rate() - speedStep); });
    add(Command::Faster, tr("Faster"), {Qt::Key_BracketRight},
        [this] { changeSpeed(player->rate() + speedStep); });
    add(Command::NormalSpeed, tr("Normal Speed"), {Qt::Key_Equal}, [this] { changeSpeed(1); });
    add(Command::SoundEarlier, tr("Sound Earlier"), {Qt::Key_J},
        [this] { changeAudioDelay(player->audioDelayMs() - delayStepMs); });
    add(Command::SoundLater, tr("Sound Later"), {Qt::Key_K},
        [this] { changeAudioDelay(player->audioDelayMs() + delayStepMs); });
    add(Command::SubtitlesEarlier, tr("Subtitles Earlier"), {Qt::Key_G},
        [this] { changeSubtitleDelay(player->subtitleDelayMs() - delayStepMs); });
    add(Command::SubtitlesLater, tr("Subtitles Later"), {Qt::Key_H},
        [this] { changeSubtitleDelay(player->subtitleDelayMs() + delayStepMs); });
}

void PlayerCommands::addPictureCommands()
{
    using Command = PlayerCommand;
    add(Command::NextAspectRatio, tr("Next Aspect Ratio"), {Qt::Key_A},
        [this] { setAspectRatio(after(aspectRatios(), player->picture().aspectRatio)); });
    add(Command::NextCrop, tr("Next Crop"), {Qt::SHIFT | Qt::Key_C},
        [this] { setCrop(after(crops(), player->picture().crop)); });
    add(Command::NextZoom, tr("Next Zoom"), {Qt::Key_Z},
        [this] { setZoom(after(zooms(), currentZoom())); });
    QAction *deinterlace = add(Command::Deinterlace, tr("Deinterlace"), {Qt::Key_D}, {});
    connect(deinterlace, &QAction::triggered, this, &PlayerCommands::setDeinterlaced);
    add(Command::NextAudioTrack, tr("Next Audio Track"), {Qt::Key_B},
        [this] { selectNextAudioTrack(); });
    add(Command::NextSubtitleTrack, tr("Next Subtitle Track"), {Qt::Key_V},
        [this] { selectNextSubtitleTrack(); });
    add(Command::Snapshot, tr("Save Picture"), {Qt::SHIFT | Qt::Key_S}, [this] { takeSnapshot(); });
    QAction *onTop = add(Command::AlwaysOnTop, tr("Always on Top"), {Qt::SHIFT | Qt::Key_T}, {});
    connect(onTop, &QAction::triggered, this, &PlayerCommands::setAlwaysOnTop);
    QAction *small = add(Command::SmallWindow, tr("Small Window"), {Qt::SHIFT | Qt::Key_P}, {});
    connect(small, &QAction::triggered, this, &PlayerCommands::smallWindowToggled);
    for (QAction *state : {deinterlace, onTop, small}) {
        state->setCheckable(true);
    }
}

QAction *PlayerCommands::add(PlayerCommand command, const QString &text,
                             const QList<QKeyCombination> &keys, const std::function<void()> &run)
{
    Q_ASSERT(static_cast<qsizetype>(command) == actions.size());
    auto *action = new QAction(text, this);
    QList<QKeySequence> shortcuts;
    for (const QKeyCombination &key : keys) {
        shortcuts.append(QKeySequence(key));
    }
    action->setShortcuts(shortcuts);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    // A held key changes speed and delays on and on; anything else would happen too often.
    action->setAutoRepeat(command >= PlayerCommand::Slower &&
                          command <= PlayerCommand::SubtitlesLater);
    if (run) {
        connect(action, &QAction::triggered, this, [run] { run(); });
    }
    panel->addAction(action);
    actions.append(action);
    return action;
}

QAction *PlayerCommands::action(PlayerCommand command) const
{
    return actions.at(static_cast<qsizetype>(command));
}

void PlayerCommands::tell(const QString &text)
{
    if (line == nullptr) {
        line = new PictureLine(panel->surface(), panel);
    }
    line->tell(text);
}

/// Whether a stream plays; tells when none does.
bool PlayerCommands::plays()
{
    const bool hasMedia = session->hasMedia();
    if (!hasMedia) {
        tell(tr("Nothing playing"));
    }
    return hasMedia;
}

// ---- channel numbers ----

void PlayerCommands::addDigits()
{
    numberTimer->setObjectName(u"numberTimer"_s);
    numberTimer->setSingleShot(true);
    numberTimer->setInterval(numberDelayMs);
    connect(numberTimer, &QTimer::timeout, this,
            [this] { Q_EMIT channelRequested(std::exchange(typedNumber, {}).toInt()); });
    for (int digit = 0; digit <= 9; ++digit) {
        auto *shortcut = new QShortcut(QKeySequence(Qt::Key_0 + digit), panel);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, [this, digit] { typeDigit(digit); });
    }
}

void PlayerCommands::typeDigit(int digit)
{
    if (typedNumber.size() < longestNumber) {
        typedNumber += QString::number(digit);
    }
    numberTimer->start();
    tell(tr("Channel %1").arg(typedNumber));
}

// ---- speed and delays ----

void PlayerCommands::changeSpeed(float rate)
{
    if (!plays()) {
        return;
    }
    if (!StreamKind::isSeekable(session->kind())) {
        tell(tr("A live channel has no other speed"));
        return;
    }
    // In steps of a tenth, whatever floating point makes of sums.
    player->setRate(std::round(rate * 100) / 100);
    tell(tr("Speed: %1x").arg(QLocale().toString(player->rate(), 'f', 2)));
}

void PlayerCommands::changeAudioDelay(qint64 ms)
{
    if (plays()) {
        player->setAudioDelay(ms);
        tell(tr("Audio delay: %1 ms").arg(QLocale().toString(player->audioDelayMs())));
    }
}

void PlayerCommands::changeSubtitleDelay(qint64 ms)
{
    if (plays()) {
        player->setSubtitleDelay(ms);
        tell(tr("Subtitle delay: %1 ms").arg(QLocale().toString(player->subtitleDelayMs())));
    }
}

// ---- the picture ----

QList<PictureChoice> PlayerCommands::aspectRatios() const
{
    return {{{}, tr("Default")},         {u"16:9"_s, u"16:9"_s},      {u"4:3"_s, u"4:3"_s},
            {u"1:1"_s, u"1:1"_s},        {u"16:10"_s, u"16:10"_s},    {u"221:100"_s, u"2.21:1"_s},
            {u"235:100"_s, u"2.35:1"_s}, {u"239:100"_s, u"2.39:1"_s}, {u"5:4"_s, u"5:4"_s}};
}

QList<PictureChoice> PlayerCommands::crops() const
{
    return {{{}, tr("Default")},         {u"16:10"_s, u"16:10"_s},    {u"16:9"_s, u"16:9"_s},
            {u"4:3"_s, u"4:3"_s},        {u"185:100"_s, u"1.85:1"_s}, {u"221:100"_s, u"2.21:1"_s},
            {u"235:100"_s, u"2.35:1"_s}, {u"239:100"_s, u"2.39:1"_s}, {u"5:3"_s, u"5:3"_s},
            {u"5:4"_s, u"5:4"_s},        {u"1:1"_s, u"1:1"_s}};
}

QList<PictureChoice> PlayerCommands::zooms() const
{
    const auto percent = [](int value) { return tr("%1 %").arg(value); };
    return {{u"0"_s, tr("Fit to Window")},
            {u"0.25"_s, percent(25)},
            {u"0.5"_s, percent(50)},
            {u"1"_s, percent(100)},
            {u"2"_s, percent(200)}};
}

QString PlayerCommands::currentZoom() const
{
    return QString::number(player->picture().scale);
}

void PlayerCommands::setAspectRatio(const PictureChoice &choice)
{
    PictureSettings settings = player->picture();
    settings.aspectRatio = choice.value;
    player->setPicture(settings);
    tell(tr("Aspect ratio: %1").arg(choice.name));
}

void PlayerCommands::setCrop(const PictureChoice &choice)
{
    PictureSettings settings = player->picture();
    settings.crop = choice.value;
    player->setPicture(settings);
    tell(tr("Crop: %1").arg(choice.name));
}

void PlayerCommands::setZoom(const PictureChoice &choice)
{
    PictureSettings settings = player->picture();
    settings.scale = choice.value.toFloat();
    player->setPicture(settings);
    tell(tr("Zoom: %1").arg(choice.name));
}

void PlayerCommands::setDeinterlaced(bool on)
{
    PictureSettings settings = player->picture();
    settings.deinterlace = on;
    player->setPicture(settings);
    tell(on ? tr("Deinterlacing: on") : tr("Deinterlacing: off"));
}

// ---- tracks ----

void PlayerCommands::selectNextAudioTrack()
{
    const QList<VlcPlayer::Track> tracks = player->audioTracks();
    if (tracks.isEmpty()) {
        tell(tr("No audio tracks"));
        return;
    }
    const int current = player->currentAudioTrack();
    auto next =
        std::find_if(tracks.begin(), tracks.end(),
                     [current](const VlcPlayer::Track &track) { return track.first == current; });
    if (next == tracks.end() || ++next == tracks.end()) {
        next = tracks.begin();
    }
    player->setAudioTrack(next->first);
    tell(tr("Audio track: %1").arg(next->second));
}

/// After the last one come none.
void PlayerCommands::selectNextSubtitleTrack()
{
    const QList<VlcPlayer::Track> tracks = player->subtitleTracks();
    if (tracks.isEmpty()) {
        tell(tr("No subtitles"));
        return;
    }
    const int current = player->currentSubtitleTrack();
    auto next = tracks.begin();
    if (current >= 0) {
        next = std::find_if(tracks.begin(), tracks.end(), [current](const VlcPlayer::Track &track) {
            return track.first == current;
        });
        next = next != tracks.end() ? next + 1 : next;
    }
    player->setSubtitleTrack(next != tracks.end() ? next->first : -1);
    tell(next != tracks.end() ? tr("Subtitles: %1").arg(next->second) : tr("Subtitles: off"));
}

// ---- the window ----

void PlayerCommands::takeSnapshot()
{
    if (!plays()) {
        return;
    }
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    QDir().mkpath(folder);
    player->takeSnapshot(
        unusedPath(folder, snapshotFileName(session->title(), QDateTime::currentDateTime())));
}

void PlayerCommands::setAlwaysOnTop(bool on)
{
    // By the native window: QWidget would make another one, and the picture would stop.
    if (QWindow *window = panel->window()->windowHandle()) {
        window->setFlag(Qt::WindowStaysOnTopHint, on);
    }
    tell(on ? tr("Always on top: on") : tr("Always on top: off"));
}

void PlayerCommands::showSmallWindow(bool active)
{
    action(PlayerCommand::SmallWindow)->setChecked(active);
}
