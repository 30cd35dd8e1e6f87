#include "ui/PosterDecoder.h"

#include "ui/PosterImage.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Whole or not at all: a part of a picture may decode, and would be shown from then on.
void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    // A write that a full disk cuts short is no error to commit().
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush()) {
        file.commit();
    }
}

QByteArray bytesOf(const PosterJob &job)
{
    if (job.body.has_value()) {
        return *job.body;
    }
    return isDataUrl(job.url) ? dataUrlBytes(job.url) : readFile(job.file);
}

} // namespace

DecodedPoster decodePosterJob(const PosterJob &job)
{
    const QImage original = decodePoster(bytesOf(job));
    if (original.isNull()) {
        return {job, {}, {}};
    }
    if (job.body.has_value()) {
        writeFile(job.file, *job.body);
    }
    return {job, scaledPoster(original, job.pixelRatio), original.size()};
}
