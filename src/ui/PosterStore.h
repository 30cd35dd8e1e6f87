#pragma once

#include "ui/PosterDecoder.h"
#include "ui/PosterMemory.h"

#include <QIcon>
#include <QList>
#include <QObject>
#include <QString>
#include <QThread>

class HttpExchange;
class QNetworkAccessManager;

/// The posters of all grids: in memory within a budget of bytes, on disk, and under way.
///
/// A poster is looked up in memory, then on disk, and only then downloaded; a downloaded one is
/// written to disk as it came. Pictures are decoded one at a time on a thread of their own, in the
/// size in which the grids paint them. Failures are silent. For the GUI thread.
class PosterStore final : public QObject
{
    Q_OBJECT

public:
    /// The default holds five hundred posters on a screen of pixel ratio 1.
    static constexpr qint64 defaultMemoryBytes = 64LL * 1024 * 1024;

    explicit PosterStore(QObject *parent = nullptr, qint64 memoryBytes = defaultMemoryBytes);
    /// Waits for the picture that is being decoded; drops what else is under way.
    ~PosterStore() override;
    Q_DISABLE_COPY_MOVE(PosterStore)

    /// Names the program that asks a host for posters; other hosts hear the usual name. The
    /// provider of the posters may refuse that one.
    void setUserAgent(const QString &userAgent, const QString &host);

    /// What a grid shows until the poster is there.
    const QIcon &placeholder() const { return placeholderPoster; }
    /// The poster in memory; a null icon when it is not there. It then stays in memory at least
    /// until the poster after the next one arrives.
    QIcon find(const QString &url);
    /// Reads a poster from disk or downloads it; each call without a file on disk sends a request.
    /// False when too many posters wait to be read: call it again after idle().
    bool request(const QString &url);
    /// Whether any request may still be answered.
    bool isBusy() const;

Q_SIGNALS:
    /// The poster is in memory, for the rows that wait for it. Call find() for what is on screen:
    /// posters that nobody looks at leave the memory next.
    void posterReady(const QString &url, const QIcon &poster);
    /// The poster left the memory. It is still on disk.
    void posterEvicted(const QString &url);
    /// The request timed out before it reached its server, behind others to the same one.
    void requestAbandoned(const QString &url);
    /// request() returned false and is possible again.
    void idle();

private:
    void enqueue(const PosterJob &job);
    void startNextJob();
    void finishJob(const DecodedPoster &poster);
    void takeDecoded(const DecodedPoster &poster);
    bool isDecoding(const QString &url) const;
    void download(const QString &url);
    void takeAnswer(const QString &url, HttpExchange &exchange);

    QNetworkAccessManager *network;
    int downloads = 0; ///< under way
    QString userAgent; ///< for `userAgentHost`
    QString userAgentHost;
    QIcon placeholderPoster;
    PosterMemory memory;

    QThread decoderThread;
    PosterDecoder *decoder; ///< lives on decoderThread
    QList<PosterJob> waitingJobs;
    QString runningUrl; ///< of the job that the decoder has; empty for none
    bool refused = false;
};
