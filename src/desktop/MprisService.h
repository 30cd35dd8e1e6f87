#pragma once

#include "desktop/MediaControls.h"

#include <QObject>
#include <QVariantMap>

class SessionBus;

/// Offers the controls on the session bus as the MPRIS media player "vantiro-player", so that the
/// desktop's media keys, its lock screen and its panels control the player.
///
/// Nothing waits for the bus. A further program on the same bus gets a name of its own with its
/// process number. For the GUI thread.
class MprisService final : public QObject
{
    Q_OBJECT

public:
    /// `mediaControls` is the parent.
    explicit MprisService(MediaControls *mediaControls);

private:
    void announce();
    void requestName(const QString &name, const QString &alternative);
    void tellChanges(const MediaStatus &before, const MediaStatus &now);

    MediaControls *controls;
    SessionBus *bus;
    QObject *exported; ///< carries the adaptors
};
