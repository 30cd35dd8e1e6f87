#include "ui/PosterDecoder.h"

#include "ui/PosterImage.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(bytes);
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
