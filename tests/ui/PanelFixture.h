#pragma once

#include "DialogAnswers.h"
#include "fakeprovider/HttpServer.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"
#include "ui/PlaybackSession.h"
#include "ui/PlayerPanel.h"

#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QSlider>

using namespace Qt::StringLiterals; // for tests only

inline const QString liveRows = u"mutedLabel controlsRow"_s;
inline const QString allRows = u"mutedLabel seekRow controlsRow"_s;

/// A player panel in a window of its own, with a real player on streams that have sound but no
/// picture.
class PanelFixture
{
public:
    PanelFixture();

    /// Plays an entry whose stream never answers.
    void play(qint32 kind, const QString &title = u"Entry"_s);
    /// Plays ten seconds of sound, and waits until they run and their length is known.
    void playSound(qint32 kind = StreamKind::Movie);
    /// As playSound(), from five seconds on.
    void playSoundFromItsMiddle(qint32 kind = StreamKind::Movie);
    /// Watches the position for more than a second; whether it moves on by itself from where it
    /// was, without a seek.
    [[nodiscard]] bool playsOnFrom(qint64 ms) const;
    void interrupt() { Q_EMIT player.playbackInterrupted(u"it broke"_s); }

    /// The widget of that object name; ends the program when there is none of that type.
    template <typename Widget>
    Widget &find(const QString &name) const
    {
        auto *found = window.findChild<Widget *>(name);
        if (found == nullptr) {
            qFatal("PanelFixture: no widget \"%s\"", qUtf8Printable(name));
        }
        return *found;
    }
    QPushButton &button(const QString &text) const;
    /// The object names of the rows that show, from top to bottom.
    QString shownRows() const;
    /// Presses a key where the focus is, as the keyboard does.
    void pressKey(Qt::Key key) const;

    HttpServer server;
    DialogAnswers dialogs;
    QMainWindow window;
    PlayerPanel &panel = *new PlayerPanel;
    VlcPlayer player;
    PlaybackSession session;
    QSlider &seekSlider = find<QSlider>(u"seekSlider"_s);
    QSlider &volumeSlider = find<QSlider>(u"volumeSlider"_s);
    QLabel &timeLabel = find<QLabel>(u"timeLabel"_s);
};
