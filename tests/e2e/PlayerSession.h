#pragma once

#include "fakeprovider/XtreamProvider.h"
#include "support/UiTexts.h"
#include "support/desktop/Accessible.h"
#include "support/desktop/Input.h"
#include "support/desktop/RunningApp.h"
#include "support/desktop/Screen.h"

#include <QString>

/// The player as a process of its own on the test program's private profile, and what a user does
/// with it, step by step. start() again, after close(), is a restart.
class PlayerSession final
{
public:
    explicit PlayerSession(const QString &program = QStringLiteral(VANTIRO_PLAYER))
        : app(program)
    {}

    /// Starts the player, with what it is to open, and waits for its window of that title.
    [[nodiscard]] bool start(const QStringList &arguments = {},
                             const QString &title = UiTexts::mainWindow);
    /// Closes the player; false as well if it does not end with status 0.
    [[nodiscard]] bool close() { return app.close() && app.exitCode() == 0; }

    /// @name The "Add Source" dialog that is open
    /// @{
    desktop::Accessible addDialog() const;
    [[nodiscard]] bool chooseType(const QString &type) const;
    [[nodiscard]] bool fill(const QString &label, const QString &text) const;
    [[nodiscard]] bool acceptDialog() const;
    /// @}

    /// @name The lists
    /// @{
    [[nodiscard]] bool openTab(const QString &tab) const;
    [[nodiscard]] bool openCategory(const QString &name) const;
    /// Opens all entries of a tab.
    [[nodiscard]] bool openAll(const QString &tab) const;
    /// The channel, film or show of that name in the list that is open.
    desktop::Accessible entry(const QString &name) const;
    [[nodiscard]] bool play(const QString &name) const;
    /// Plays the entry and waits for its name and its moving picture.
    [[nodiscard]] bool watch(const QString &name) const;
    /// @}

    /// @name The player panel
    /// @{
    /// The part of the screen that the picture is in.
    QRect videoRect() const;
    /// Waits for a moving picture in it.
    [[nodiscard]] bool seesPicture() const;
    /// Waits until some label of the main window has this text.
    [[nodiscard]] bool showsLabel(const QString &text) const;
    /// Waits until it tells of an attempt to bring that channel back, whichever: the first one may
    /// be over before a busy machine has searched the window.
    [[nodiscard]] bool showsReconnecting(const QString &title) const;
    [[nodiscard]] bool clickButton(const QString &text) const;
    /// Clicks a button and waits for the menu that opens.
    desktop::Accessible openMenu(const QString &button) const;
    /// @}

    desktop::NativeWindow nativeWindow() const { return app.nativeWindow(UiTexts::mainWindow); }
    /// Whether libVLC has opened no window of its own, and no dialog shows.
    bool hasOneWindow() const;
    /// Saves a picture of the main window for people to look at.
    void keepScreenshot(const QString &name) const;

    desktop::RunningApp app;
    desktop::Accessible window; ///< the main window; valid after start()
};
