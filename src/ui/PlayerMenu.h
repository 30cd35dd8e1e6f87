#pragma once

class PlayerCommands;
class PlayerPanel;
class VlcPlayer;

/// Gives the panel its context menu: what can be done with what plays, with the keys. None of them
/// is owned.
void addPlayerMenu(PlayerPanel *panel, PlayerCommands *commands, VlcPlayer *player);
