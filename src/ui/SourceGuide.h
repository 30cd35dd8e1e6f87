#pragma once

#include "guide/GuideResult.h"
#include "guide/GuideUpdate.h"
#include "library/LibraryRecords.h"
#include "model/SourceConfig.h"

#include <QObject>
#include <QString>
#include <QTimer>

class Guide;
class Library;

/// The guide of the active source: whether it is turned on, and keeping it up to date. What the
/// user decided stands in the library. Nothing is requested, stored or read for a source whose
/// guide is off. GUI thread only.
class SourceGuide final : public QObject
{
    Q_OBJECT

public:
    /// The library is not owned, and must outlive this.
    SourceGuide(Library *library, QObject *parent);

    /// The active source, with its account as far as it is known; an empty name means none.
    void setSource(const SourceConfig &config);
    const SourceConfig &source() const { return active; }
    /// The source's guide; one that is not open while it is off.
    Guide *guide() const { return stored; }
    bool isOn() const;

    GuideSettings settings() const;
    /// Stores the settings. A guide that was turned on, or has other addresses, is updated.
    void setSettings(const GuideSettings &settings);
    /// Corrects the guide's channel of an entry; `guideId` is empty for no guide.
    void setCorrection(const MediaItem &entry, const QString &guideId);
    /// Takes the correction back.
    void removeCorrection(const MediaItem &entry);
    /// The kind of the source's entries that have a guide.
    EntryKind kind() const;

    /// Updates the guide of the active source with these settings, which need not be stored.
    void update(const GuideSettings &settings);
    void cancelUpdate();
    bool isUpdating() const { return updater.isRunning(); }
    /// What came of the last update of the active source.
    const GuideResult &lastResult() const { return result; }

    /// A source was renamed, or deleted when `to` is empty.
    void moveSource(const QString &from, const QString &to);

Q_SIGNALS:
    /// The guide of the active source is on now, or off.
    void turned(bool on);
    /// How much of an update is done, in percent; -1 when that is not known.
    void progressed(int percent);
    /// Also for an update that was cancelled.
    void updated(const GuideResult &result);

private:
    void turnOff();
    void follow();
    void refreshIfDue();
    void takeResult(const GuideResult &newResult);
    void rematch();
    GuideUpdateRequest request(const GuideSettings &settings) const;

    Library *library;
    Guide *stored;
    GuideUpdate updater;
    QTimer clock; ///< runs while the guide is to be refreshed
    SourceConfig active = defaultSourceConfig();
    GuideSettings followed; ///< the settings as they were acted on
    GuideResult result;
    bool resultIsKnown = false;
    QString fetchedAddresses; ///< of the last update
    QString corrected;        ///< the entry whose channel was chosen last
};
