#pragma once

#include <QFile>

/// Opens a file for writing, readable by its owner only, and creates it where it is missing. For
/// files that contain credentials. The permissions of an existing file are narrowed before anything
/// is written; a file system without permissions is not an error. On Windows the user's profile
/// folder protects the file. False if the file cannot be opened.
inline bool openOwnerOnly(QFile &file, QIODevice::OpenMode mode)
{
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
