#pragma once

#include <QDateTime>
#include <QString>

/// The name of a file for a picture of that entry: the entry's name without what a file name cannot
/// have, and the time.
QString snapshotFileName(const QString &entryName, const QDateTime &time);

/// A path in the folder for that name which no file has yet.
QString unusedPath(const QString &folder, const QString &fileName);
