#pragma once

#include <QFile>

/// Empties or creates the file and opens it for writing, readable by its owner only: for what holds
/// credentials. Wider permissions of an existing file are taken away before anything is written; a
/// file system without permissions is no failure. On Windows the user's profile folder protects it.
/// False when the file cannot be opened.
inline bool openOwnerOnly(QFile &file)
{
    constexpr QIODevice::OpenMode mode = QIODevice::WriteOnly | QIODevice::Truncate;
#ifdef Q_OS_WIN
    return file.open(mode);
#else
    constexpr QFileDevice::Permissions owner = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    if (!file.open(mode, owner)) {
        return false;
    }
    file.setPermissions(owner);
    return true;
#endif
}
