#pragma once

#include "model/SourceConfig.h"

#include <QList>
#include <QObject>

/// The list of configured sources and the name of the source that was active last, mirrored into
/// the platform's settings store (organisation "Vantiro", application "Player").
///
/// The store may be shared with other running programs: a write adds this program's changes to what
/// the others have stored meanwhile. Their changes show here only after a restart.
///
/// GUI thread only. A store that cannot be read gives an empty list; failed writes are reported by
/// setSources() only.
class SourceManager final : public QObject
{
    Q_OBJECT

public:
    explicit SourceManager(QObject *parent);

    /// The sources in the order in which they were first added.
    QList<SourceConfig> sources() const { return sourceList; }

    /// The recorded name, empty if none was ever set. It may name a source that no longer exists.
    QString lastActiveSourceName() const { return lastActiveName; }
    void setLastActiveSourceName(const QString &name);

    /// Replaces the first source of the same name in place, or appends `config`, and stores the
    /// list.
    void saveSource(const SourceConfig &config);

    /// Removes the first source of that name, if any, and stores the list.
    void removeSource(const QString &name);

    /// Replaces the list and stores it, all of it or nothing. False when it cannot be stored; the
    /// list is then as it was.
    bool setSources(const QList<SourceConfig> &sources);

private:
    enum class OnFailure
    {
        TryAgain, ///< with the next change
        GiveUp
    };

    void load();
    void persist();
    bool store(const QList<SourceConfig> &sources, OnFailure onFailure);

    QList<SourceConfig> sourceList;
    QList<SourceConfig> knownList; ///< as it was when it was last read or written
    QString lastActiveName;
};
