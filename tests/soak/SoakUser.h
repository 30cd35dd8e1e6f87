#pragma once

#include "e2e/PlayerSession.h"
#include "soak/SoakProviders.h"

#include <QList>
#include <QRandomGenerator>
#include <QString>

/// Someone who uses everything that the player has, again and again, in an order that a seed
/// decides.
class SoakUser
{
public:
    SoakUser(PlayerSession &playerSession, SoakProviders &soakProviders, quint32 seed);

    /// Looks at the posters of all films and shows once, so that what the player keeps of them is
    /// there before anything is measured.
    [[nodiscard]] bool seeEverything();
    /// Does the next thing and waits for its effect. False, with a warning, if that stays away.
    [[nodiscard]] bool act();
    /// What act() did last.
    QString lastAction() const { return currentName; }
    /// Brings the player to the state in which measurements are comparable: the same source and
    /// list, and the same channel in the window.
    [[nodiscard]] bool rest();

private:
    /// How long an effect may take on a busy machine.
    static constexpr int effectMs = 60000;

    struct Action
    {
        QString name;
        bool (SoakUser::*run)();
    };
    static QList<Action> allActions();

    // ---- SoakUser.cpp: sources and lists ----
    bool switchSource();
    bool refreshSource();
    bool addAndDeletePlaylist();
    bool searchEverything();
    bool scrollLists();
    bool scroll(int stepMs);

    // ---- SoakPlayback.cpp ----
    bool watchChannel();
    bool changeChannels();
    bool watchFilm();
    bool watchEpisodes();
    bool changeFullscreen();
    bool useControls();
    bool openMenus();
    bool loseConnection();
    bool watchBriefChannel();
    bool watchUnavailableChannel();
    bool openBrokenFilm();
    bool leaveHangingChannel();

    // ---- SoakUser.cpp ----
    bool useSource(const QString &name);
    QString source() const;
    QString channelsTab() const;
    bool openEntries(const QString &tab);
    bool openCategories(const QString &tab);
    bool clickIfThere(const QString &button);
    bool search(const QString &line, const QString &text);
    bool watch(const QString &tab, const QString &name);
    /// Waits until the channel was asked for again so many times.
    bool reconnects(const QString &channel, int times, int requestsBefore) const;
    int below(int bound) { return numbers.bounded(bound); }

    PlayerSession &session;
    SoakProviders &providers;
    QRandomGenerator numbers;
    /// Every action once, in random order; dealt again when it is empty.
    QList<Action> deck;
    QString currentName;
};
