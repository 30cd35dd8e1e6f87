#pragma once

#include <QByteArray>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QString>

#include <optional>

/// One poster to decode. Without a body it is read from a data URL or from the file.
struct PosterJob
{
    QString url;
    QString file;                   ///< where the poster is kept on disk
    std::optional<QByteArray> body; ///< as downloaded; written to the file when it is a picture
    qreal pixelRatio = 1;           ///< of the screen that shows it
};

struct DecodedPoster
{
    PosterJob job;
    QImage picture; ///< as scaledPoster() returns it; null when there is none
    QSize originalSize;
};

/// Does a job on the calling thread. Failures are silent: the picture is null, or the file is not
/// written.
DecodedPoster decodePosterJob(const PosterJob &job);

/// Does jobs one after the other on the thread that it was moved to.
class PosterDecoder final : public QObject
{
    Q_OBJECT

public:
    void decode(const PosterJob &job) { Q_EMIT decoded(decodePosterJob(job)); }

Q_SIGNALS:
    void decoded(const DecodedPoster &poster);
};
