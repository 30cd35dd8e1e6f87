#include "ui/PlaylistCopy.h"

#include "model/SafeFileName.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 blockSize = 1024LL * 1024;

bool isRemote(const QString &url)
{
    return url.startsWith("http://"_L1, Qt::CaseInsensitive) ||
           url.startsWith("https://"_L1, Qt::CaseInsensitive);
}

/// The stored copy's file name for a source of that name.
QString storedFileName(const QString &sourceName, const QFileInfo &chosen)
{
    QString fileName = safeFileName(sourceName);
    if (fileName.isEmpty()) {
        fileName = u"playlist"_s;
    }
    return chosen.suffix().isEmpty() ? fileName : fileName + u'.' + chosen.suffix();
}

/// Copies aside first: `target` is replaced when all of the file has arrived, or not at all.
bool replaceByCopy(const QString &path, const QString &target, QString *reason)
{
    QFile chosen(path);
    if (!chosen.open(QIODevice::ReadOnly)) {
        *reason = chosen.errorString();
        return false;
    }
    QSaveFile copy(target);
    if (!copy.open(QIODevice::WriteOnly)) {
        *reason = copy.errorString();
        return false;
    }
    // Playlists hold credentials.
    copy.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    QByteArray block(blockSize, Qt::Uninitialized);
    qint64 size = 0;
    bool complete = true;
    while (complete && (size = chosen.read(block.data(), block.size())) > 0) {
        // A write that a full disk cuts short is no error to commit().
        complete = copy.write(block.constData(), size) == size && copy.flush();
    }
    if (size < 0) {
        *reason = chosen.errorString();
        return false;
    }
    if (!complete || !copy.commit()) {
        *reason = copy.errorString();
        return false;
    }
    return true;
}

} // namespace

bool storePlaylistCopy(SourceConfig &config, QString *error)
{
    const QFileInfo chosen(config.url);
    if (SourceType::isAccount(config.type) || config.url.isEmpty() || isRemote(config.url) ||
        !chosen.isFile()) {
        return true;
    }
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/playlists"_L1;
    QDir().mkpath(folder);
    const QString target = folder + u'/' + storedFileName(config.name, chosen);
    // Compared as the file system does: on Windows, names that differ in case are one file.
    if (chosen == QFileInfo(target)) {
        return true;
    }
    QString reason;
    if (!replaceByCopy(config.url, target, &reason)) {
        *error = QCoreApplication::translate("PlaylistCopy",
                                             "The playlist \"%1\" could not be copied: %2")
                     .arg(config.url, reason);
        return false;
    }
    config.url = target;
    return true;
}

bool lacksPlaylistFile(const SourceConfig &source)
{
    return !SourceType::isAccount(source.type) && !isRemote(source.url) &&
           !QFileInfo(source.url).isFile();
}
