#pragma once

#include <QCoreApplication>

class VlcPlayer;

class QPushButton;
class QWidget;

/// The menus that choose the tracks of the stream. Each opens above its button and returns when it
/// has closed and its choice is made.
class TrackMenus final
{
    Q_DECLARE_TR_FUNCTIONS(TrackMenus)

public:
    static void execAudioMenu(VlcPlayer *player, const QPushButton *button);
    static void execSubtitleMenu(VlcPlayer *player, const QPushButton *button);
    /// Asks for a subtitle file and adds it to the stream.
    static void loadSubtitleFile(VlcPlayer *player, QWidget *parent);
};
