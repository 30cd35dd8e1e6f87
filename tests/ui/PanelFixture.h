#pragma once

#include "DialogAnswers.h"
#include "fakeprovider/HttpServer.h"
#include "model/CatalogRecords.h"
#include "player/VlcPlayer.h"
#include "ui/PlaybackSession.h"
#include "ui/PlayerPanel.h"

#include <QMainWindow>
#include <QPushButton>
#include <QString>

/// A player panel in a window of its own, with a real player on streams that have sound but no
/// picture.
class PanelFixture
{
public:
    PanelFixture();

    /// Plays an entry whose stream never answers.
    void play(qint32 kind, const QString &title = QStringLiteral("Entry"));
    /// Plays ten seconds of sound, and waits until they run and their length is known.
    void playSound(qint32 kind = StreamKind::Movie);
    /// Watches the position for more than a second; whether it moves on by itself from where it
    /// was, without a seek.
    [[nodiscard]] bool playsOnFrom(qint64 ms) const;
    void interrupt() { Q_EMIT player.playbackInterrupted(QStringLiteral("it broke")); }

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
    /// The rows that show, from top to bottom, by object name.
    QStringList shownRows() const;
    /// Presses a key where the focus is, as the keyboard does.
    void pressKey(Qt::Key key) const;

    HttpServer server;
    DialogAnswers dialogs;
    QMainWindow window;
    PlayerPanel &panel = *new PlayerPanel;
    VlcPlayer player;
    PlaybackSession session;
};
