#include "ui/PosterStore.h"

#include "providers/HttpExchange.h"
#include "providers/ReplyBody.h"
#include "providers/UserAgent.h"
#include "providers/WebUrl.h"
#include "ui/PosterIcon.h"
#include "ui/PosterImage.h"

#include <QFile>
#include <QGuiApplication>
#include <QNetworkAccessManager>
#include <QUrl>

#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// More posters do not wait to be read from disk: the view may have moved on when their turn comes.
constexpr int maxWaitingReads = 32;
/// Bodies that wait to be decoded may have so many bytes together.
constexpr qint64 maxWaitingBytes = 64LL * 1024 * 1024;

bool mayBeImage(const QNetworkReply &reply)
{
    const QString type = reply.header(QNetworkRequest::ContentTypeHeader).toString();
    return type.isEmpty() || type.startsWith("image/"_L1, Qt::CaseInsensitive);
}

qint64 bodyBytes(const QList<PosterJob> &jobs)
{
    qint64 bytes = 0;
    for (const PosterJob &job : jobs) {
        bytes += job.body.has_value() ? job.body->size() : 0;
    }
    return bytes;
}

qsizetype reads(const QList<PosterJob> &jobs)
{
    return std::count_if(jobs.begin(), jobs.end(),
                         [](const PosterJob &job) { return !job.body.has_value(); });
}

} // namespace

PosterStore::PosterStore(QObject *parent, qint64 memoryBytes)
    : QObject(parent)
    , network(new QNetworkAccessManager(this))
    , placeholderPoster(makePlaceholderPoster())
    , memory(memoryBytes)
    , decoder(new PosterDecoder)
{
    network->setObjectName(u"thumbnailNetwork"_s);
    network->setTransferTimeout(posterTimeoutMs);
    decoder->moveToThread(&decoderThread);
    connect(&decoderThread, &QThread::finished, decoder, &QObject::deleteLater);
    connect(decoder, &PosterDecoder::decoded, this, &PosterStore::finishJob);
    decoderThread.setObjectName(u"posters"_s);
    decoderThread.start();
}

PosterStore::~PosterStore()
{
    decoderThread.quit();
    decoderThread.wait();
}

void PosterStore::setUserAgent(const QString &agent, const QString &host)
{
    userAgent = agent;
    userAgentHost = host;
}

QIcon PosterStore::find(const QString &url)
{
    return memory.find(url);
}

bool PosterStore::request(const QString &url)
{
    if (url.isEmpty()) {
        return true;
    }
    const QString file = posterCachePath(url);
    // A body that is being decoded is about to be on disk.
    if (!isDataUrl(url) && !isDecoding(url) && !QFile::exists(file)) {
        download(url);
        return true;
    }
    if (reads(waitingJobs) >= maxWaitingReads) {
        refused = true;
        return false;
    }
    enqueue({url, file, std::nullopt, qGuiApp->devicePixelRatio()});
    return true;
}

bool PosterStore::isBusy() const
{
    return downloads > 0 || !runningUrl.isEmpty() || !waitingJobs.isEmpty();
}

bool PosterStore::isDecoding(const QString &url) const
{
    return runningUrl == url ||
           std::any_of(waitingJobs.begin(), waitingJobs.end(),
                       [&url](const PosterJob &job) { return job.url == url; });
}

void PosterStore::enqueue(const PosterJob &job)
{
    if (job.body.has_value() && bodyBytes(waitingJobs) + job.body->size() > maxWaitingBytes) {
        // Bodies arrive faster than the decoder works: hold up their arrival.
        takeDecoded(decodePosterJob(job));
        return;
    }
    waitingJobs.append(job);
    startNextJob();
}

void PosterStore::startNextJob()
{
    while (runningUrl.isEmpty() && !waitingJobs.isEmpty()) {
        const PosterJob job = waitingJobs.takeFirst();
        if (const QIcon known = memory.find(job.url); !known.isNull()) {
            // Another row with the same poster got it.
            Q_EMIT posterReady(job.url, known);
            continue;
        }
        runningUrl = job.url;
        QMetaObject::invokeMethod(decoder, [worker = decoder, job] { worker->decode(job); });
    }
    if (refused && reads(waitingJobs) == 0) {
        refused = false;
        Q_EMIT idle();
    }
}

void PosterStore::finishJob(const DecodedPoster &poster)
{
    runningUrl.clear();
    takeDecoded(poster);
    startNextJob();
}

void PosterStore::takeDecoded(const DecodedPoster &poster)
{
    const QString url = poster.job.url;
    if (poster.picture.isNull()) {
        if (!poster.job.body.has_value()) {
            download(url);
        }
        return;
    }
    if (memory.contains(url)) {
        return;
    }
    const QIcon icon = makePosterIcon(QPixmap::fromImage(poster.picture), poster.originalSize);
    memory.insert(url, icon, poster.picture.sizeInBytes());
    Q_EMIT posterReady(url, icon);
    const QStringList evictedUrls = memory.trim();
    for (const QString &evicted : evictedUrls) {
        Q_EMIT posterEvicted(evicted);
    }
}

void PosterStore::download(const QString &url)
{
    const QUrl address(url);
    if (!isWebUrl(address)) {
        return;
    }
    ++downloads;
    HttpQuestion question;
    question.request.setUrl(address);
    if (address.host() == userAgentHost) {
        ::setUserAgent(question.request, userAgent);
    }
    question.maxBytes = maxPosterBytes;
    auto *exchange = new HttpExchange(network, std::move(question));
    // A request may wait for others to the same server while its timeout runs.
    const auto waited = std::make_shared<bool>(true);
    connect(exchange, &HttpExchange::begun, exchange, [waited] { *waited = false; });
    connect(exchange, &HttpExchange::finished, this, [this, exchange, waited, url] {
        exchange->deleteLater();
        --downloads;
        if (*waited && exchange->error() == QNetworkReply::OperationCanceledError) {
            Q_EMIT requestAbandoned(url);
        } else {
            takeAnswer(url, *exchange);
        }
    });
}

void PosterStore::takeAnswer(const QString &url, HttpExchange &exchange)
{
    if (!exchange.failed() && mayBeImage(exchange.reply())) {
        enqueue({url, posterCachePath(url), exchange.take().join(), qGuiApp->devicePixelRatio()});
    }
}
