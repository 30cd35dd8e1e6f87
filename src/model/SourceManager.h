#pragma once

#include "model/SourceConfig.h"

#include <QList>
#include <QObject>

/// The list of configured sources and the name of the source that was active last, mirrored into
/// the platform's settings store (organisation "Vantiro", application "Player").
///
/// GUI thread only. A store that cannot be read gives an empty list; failed writes are not
/// reported.
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

private:
    void load();
    void persist();

    QList<SourceConfig> sourceList;
    QString lastActiveName;
};
