#pragma once

#include "desktop/MediaControls.h"

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QStringList>
#include <QVariantMap>

/// @file
/// The two interfaces of an MPRIS player. Qt answers calls from the bus with their slots and
/// properties, on the GUI thread; their names and types are those that MPRIS defines.

class MprisRootAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ isOffered CONSTANT)
    Q_PROPERTY(bool CanRaise READ isOffered CONSTANT)
    Q_PROPERTY(bool HasTrackList READ isNotOffered CONSTANT)
    Q_PROPERTY(QString Identity READ identity CONSTANT)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry CONSTANT)
    Q_PROPERTY(QStringList SupportedUriSchemes READ none CONSTANT)
    Q_PROPERTY(QStringList SupportedMimeTypes READ none CONSTANT)

public:
    MprisRootAdaptor(QObject *exported, MediaControls *mediaControls);

    bool isOffered() const { return true; }
    bool isNotOffered() const { return false; }
    QString identity() const;
    QString desktopEntry() const;
    QStringList none() const { return {}; }

public Q_SLOTS:
    void Raise();
    void Quit();

private:
    MediaControls *controls;
};

class MprisPlayerAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(double Rate READ rate WRITE setRate)
    Q_PROPERTY(double MinimumRate READ rate CONSTANT)
    Q_PROPERTY(double MaximumRate READ rate CONSTANT)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ volume WRITE setVolume)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(bool CanGoNext READ canGoNext)
    Q_PROPERTY(bool CanGoPrevious READ canGoPrevious)
    Q_PROPERTY(bool CanPlay READ canPlay)
    Q_PROPERTY(bool CanPause READ canPlay)
    Q_PROPERTY(bool CanSeek READ canSeek)
    Q_PROPERTY(bool CanControl READ canControl CONSTANT)

public:
    MprisPlayerAdaptor(QObject *exported, MediaControls *mediaControls);

    /// The properties that change by themselves, as they are now.
    static QVariantMap properties(const MediaStatus &status);

    QString playbackStatus() const;
    double rate() const { return 1.0; }
    void setRate(double /*rate*/) {} // the only one
    QVariantMap metadata() const;
    double volume() const;
    void setVolume(double volume);
    qlonglong position() const;
    bool canGoNext() const { return controls->status().canGoNext; }
    bool canGoPrevious() const { return controls->status().canGoPrevious; }
    bool canPlay() const { return controls->status().canPlay; }
    bool canSeek() const { return controls->status().canSeek; }
    bool canControl() const { return true; }

public Q_SLOTS:
    void Next();
    void Previous();
    void Pause();
    void PlayPause();
    void Stop();
    void Play();
    void Seek(qlonglong offset);
    void SetPosition(const QDBusObjectPath &track, qlonglong position);
    void OpenUri(const QString &uri);

Q_SIGNALS:
    void Seeked(qlonglong position);

private:
    MediaControls *controls;
};
