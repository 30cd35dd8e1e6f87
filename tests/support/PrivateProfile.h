#pragma once

#include <QString>
#include <QTemporaryDir>

/// A home of its own for the test program, so that no test reads or changes a user's files.
///
/// Make it before the application object: it sets HOME and the XDG folders, and gives the
/// application the names that decide where settings and data lie. The folders vanish with it.
class PrivateProfile
{
public:
    PrivateProfile();
    ~PrivateProfile();
    PrivateProfile(const PrivateProfile &) = delete;
    PrivateProfile &operator=(const PrivateProfile &) = delete;

    /// The profile that the test program's main made (support/TestMain.h).
    static PrivateProfile &current();

    /// Empties settings, data and cache, as on a first start. Call it when no object of the
    /// program under test is alive.
    void clear();

    QString root() const;
    QString appDataDir() const;   ///< what QStandardPaths::AppDataLocation gives; may not exist
    QString settingsFile() const; ///< the settings store; may not exist

private:
    QTemporaryDir directory;
};
