#pragma once

#include "support/desktop/Accessible.h"
#include "support/desktop/Input.h"
#include "support/desktop/RunningApp.h"
#include "support/desktop/Screen.h"

#include <QString>

/// The player as a process of its own on the test program's private profile, with shorthands for
/// what a user looks at.
class PlayerSession final
{
public:
    /// Network traces are on, so that tests can wait for them.
    PlayerSession();

    /// Starts the player and waits for its window.
    [[nodiscard]] bool start();
    [[nodiscard]] bool close() { return app.close(); }

    desktop::RunningApp app;
    /// The main window; valid after start().
    desktop::Accessible window;

    /// The part of the screen that the picture is in.
    QRect videoRect() const;
    /// Waits for a moving picture in it.
    [[nodiscard]] bool seesPicture() const;
    /// Waits until some label of the main window has this text.
    [[nodiscard]] bool showsLabel(const QString &text) const;
    /// Clicks a button of the main window.
    [[nodiscard]] bool clickButton(const QString &text) const;
    /// Adds a playlist source through the open "Add Source" dialog.
    [[nodiscard]] bool addPlaylist(const QString &name, const QString &url);
    /// Opens all channels, or all films, of the account that is loaded.
    [[nodiscard]] bool openChannels() const;
    [[nodiscard]] bool openFilms() const;
    /// Clicks the channel, or the film, in the list that is open.
    [[nodiscard]] bool playChannel(const QString &name) const;
    [[nodiscard]] bool playFilm(const QString &name) const;
    /// Saves a picture of the main window for people to look at.
    void keepScreenshot(const QString &name) const;
};

/// The text of a playlist with the given channels, name and URL, in the group "Test".
QByteArray playlistText(const QList<std::pair<QString, QString>> &channels);
