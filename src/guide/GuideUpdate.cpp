#include "guide/GuideUpdate.h"

#include "guide/GuideClient.h"
#include "providers/BackgroundJobs.h"
#include "providers/ReplyBody.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QNetworkAccessManager>

using namespace Qt::StringLiterals;

namespace {

constexpr int importStepMs = 200;
/// Of the percents that progressed() reports: a guide is fetched longer than it is stored.
constexpr int downloadPercent = 70;
constexpr int wholePercent = 100;
constexpr auto folderName = "update-"_L1;
/// A folder that is older was left behind by a program that was killed.
constexpr qint64 oldFolderSeconds = 24LL * 3600;

bool isWebAddress(const QString &address)
{
    return address.startsWith("http://"_L1, Qt::CaseInsensitive) ||
           address.startsWith("https://"_L1, Qt::CaseInsensitive);
}

XtreamAccount accountOf(const SourceConfig &source)
{
    QString server = source.url;
    if (server.endsWith(u'/')) {
        server.chop(1);
    }
    return {server, source.username, source.password, source.userAgent};
}

void removeOldFolders(const QDir &parent)
{
    const QFileInfoList folders = parent.entryInfoList({folderName + u'*'}, QDir::Dirs);
    for (const QFileInfo &folder : folders) {
        if (folder.lastModified().secsTo(QDateTime::currentDateTime()) > oldFolderSeconds) {
            QDir(folder.filePath()).removeRecursively();
        }
    }
}

} // namespace

GuideUpdate::GuideUpdate(QObject *parent)
    : QObject(parent)
    , network(new QNetworkAccessManager(this))
    , jobs(new BackgroundJobs(this, u"guide-update"_s))
{
    network->setTransferTimeout(replyTimeoutMs);
    importClock.setInterval(importStepMs);
    connect(&importClock, &QTimer::timeout, this, &GuideUpdate::showImport);
}

GuideUpdate::~GuideUpdate()
{
    cancel();
}

void GuideUpdate::begin(const GuideUpdateRequest &wanted)
{
    cancel();
    running = true;
    request = wanted;
    job = {};
    job.storePath = request.storePath;
    job.corrections = request.corrections;
    job.language = request.language;
}

void GuideUpdate::rematch(const GuideUpdateRequest &wanted)
{
    begin(wanted);
    job.onlyMatches = true;
    import();
}

void GuideUpdate::start(const GuideUpdateRequest &wanted)
{
    begin(wanted);
    const QDir parent = QFileInfo(request.storePath).dir();
    parent.mkpath(u"."_s);
    removeOldFolders(parent);
    folder = std::make_unique<QTemporaryDir>(parent.filePath(folderName + "XXXXXX"_L1));
    fetchEntries();
}

void GuideUpdate::cancel()
{
    ++number;
    running = false;
    importClock.stop();
    current.reset();
    if (importer) {
        importer->cancel();
        importer.reset();
    }
    folder.reset();
}

// ---- fetching ----

void GuideUpdate::fetchEntries()
{
    Q_EMIT progressed(-1);
    job.entriesAreOfAccount = SourceType::isAccount(request.source.type);
    if (!job.entriesAreOfAccount && !isWebAddress(request.source.url)) {
        job.entriesPath = request.source.url;
        // Later, as with a download: start() reports nothing.
        QMetaObject::invokeMethod(
            this,
            [this, started = number] {
                if (started == number) {
                    fetchNextGuide();
                }
            },
            Qt::QueuedConnection);
        return;
    }
    job.entriesPath = folder->filePath(u"entries"_s);
    download(job.entriesAreOfAccount ? GuideClient::channelsUrl(accountOf(request.source))
                                     : request.source.url,
             GuideDownload::Packing::Removed, job.entriesPath, &GuideUpdate::takeEntries);
}

void GuideUpdate::takeEntries()
{
    if (current->problem() != GuideProblem::None) {
        job.entriesPath.clear();
        job.entriesProblem = current->detail();
    }
    fetchNextGuide();
}

void GuideUpdate::fetchNextGuide()
{
    while (job.guides.size() < request.addresses.size()) {
        QString address = request.addresses.at(job.guides.size());
        if (address == GuideUpdateRequest::accountGuide) {
            address = GuideClient::guideUrl(accountOf(request.source));
        }
        GuideImportJob::File file;
        file.address = address;
        file.shown = address;
        file.path = address;
        if (isWebAddress(address)) {
            file.shown = traceSafeUrl(address);
            file.path = folder->filePath("guide-"_L1 + QString::number(job.guides.size()));
            job.guides.append(file);
            download(address, GuideDownload::Packing::Kept, file.path, &GuideUpdate::takeGuide);
            return;
        }
        job.guides.append(file);
    }
    import();
}

void GuideUpdate::takeGuide()
{
    job.guides.last().problem = current->problem();
    job.guides.last().detail = current->detail();
    fetchNextGuide();
}

void GuideUpdate::download(const QString &url, GuideDownload::Packing packing, const QString &path,
                           void (GuideUpdate::*then)())
{
    current = std::make_unique<GuideDownload>(network, url, request.source.userAgent, packing, path,
                                              nullptr);
    connect(current.get(), &GuideDownload::progressed, this, [this](qint64 bytes, qint64 total) {
        const qint64 guides = std::max<qint64>(1, request.addresses.size());
        const qint64 before = std::max<qint64>(0, job.guides.size() - 1);
        if (total > 0 && !job.guides.isEmpty()) {
            Q_EMIT progressed(static_cast<int>((before * total + std::min(bytes, total)) *
                                               downloadPercent / (guides * total)));
        }
    });
    // Queued: the download is destroyed by what follows.
    connect(
        current.get(), &GuideDownload::finished, this, [this, then] { (this->*then)(); },
        Qt::QueuedConnection);
}

// ---- storing ----

void GuideUpdate::import()
{
    job.now = QDateTime::currentSecsSinceEpoch();
    current.reset();
    importer = std::make_shared<GuideImport>(job);
    importClock.start();
    // The folder goes when the import has read it, also when it was cancelled.
    jobs->runApart([importer = importer, files = std::shared_ptr<QTemporaryDir>(
                                             std::move(folder))] { return importer->run(); },
                   [this, started = number](const GuideResult &result) {
                       if (started != number) {
                           return;
                       }
                       importClock.stop();
                       importer.reset();
                       running = false;
                       Q_EMIT finished(result);
                   });
}

void GuideUpdate::showImport()
{
    Q_EMIT progressed(downloadPercent +
                      importer->percent() * (wholePercent - downloadPercent) / wholePercent);
}
