#pragma once

#include "guide/GuideDownload.h"
#include "guide/GuideImport.h"
#include "model/SourceConfig.h"

#include <QObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>

#include <memory>

class BackgroundJobs;

class QNetworkAccessManager;

/// What an update of a source's guide is to do.
struct GuideUpdateRequest
{
    SourceConfig source; ///< with its account, where it has one
    QString storePath;
    /// HTTP and HTTPS addresses and paths of files, in the order of preference; accountGuide stands
    /// for the account's own.
    QStringList addresses;
    QHash<QString, QString> corrections; ///< as in GuideImportJob
    QString language;                    ///< likewise

    static constexpr QLatin1StringView accountGuide{"account"};
};

/// Updates the stored guide of one source: fetches the source's list of channels and the guides,
/// one after the other, and stores them on another thread. GUI thread only.
class GuideUpdate final : public QObject
{
    Q_OBJECT

public:
    explicit GuideUpdate(QObject *parent);
    /// Cancels, and waits until that is done.
    ~GuideUpdate() override;
    Q_DISABLE_COPY_MOVE(GuideUpdate)

    /// Begins, in place of an update that runs.
    void start(const GuideUpdateRequest &request);
    /// As start(), but fetches nothing: matches the channels of the last update anew.
    void rematch(const GuideUpdateRequest &request);
    /// Ends the update that runs; finished() is not reported. The stored guide stays as it was.
    void cancel();
    bool isRunning() const { return running; }

Q_SIGNALS:
    /// How much is done, in percent; -1 when that is not known.
    void progressed(int percent);
    void finished(const GuideResult &result);

private:
    void begin(const GuideUpdateRequest &wanted);
    void fetchEntries();
    void fetchNextGuide();
    void download(const QString &url, GuideDownload::Packing packing, const QString &path,
                  void (GuideUpdate::*then)());
    void takeEntries();
    void takeGuide();
    void import();
    void showImport();

    QNetworkAccessManager *network;
    BackgroundJobs *jobs;
    QTimer importClock;
    bool running = false;
    quint64 number = 0; ///< of the update that runs
    GuideUpdateRequest request;
    GuideImportJob job;
    std::unique_ptr<QTemporaryDir> folder; ///< for what is downloaded
    std::unique_ptr<GuideDownload> current;
    std::shared_ptr<GuideImport> importer;
};
