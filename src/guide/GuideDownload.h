#pragma once

#include "app/TraceSecrets.h"
#include "guide/GuideResult.h"

#include <QFile>
#include <QObject>
#include <QString>

class HttpExchange;
class QNetworkAccessManager;

/// Downloads one file to the disk as it comes, so that its size costs no memory.
///
/// GUI thread only. A download that makes no progress for replyTimeoutMs fails.
class GuideDownload final : public QObject
{
    Q_OBJECT

public:
    enum class Packing
    {
        Kept,   ///< the bytes of a packed reply come as they are: GuideUnpacker unpacks them
        Removed ///< the network layer unpacks them
    };

    /// Downloads `url` to the file at `path`, which is replaced. `userAgent` may be empty.
    GuideDownload(QNetworkAccessManager *manager, const QString &url, const QString &userAgent,
                  Packing packing, const QString &path, QObject *parent);
    ~GuideDownload() override;
    Q_DISABLE_COPY_MOVE(GuideDownload)

    /// Known after finished().
    GuideProblem problem() const { return failure; }
    /// The reason, without credentials.
    QString detail() const { return reason; }

Q_SIGNALS:
    /// `total` is 0 when the server does not tell it.
    void progressed(qint64 bytes, qint64 total);
    /// The file is complete, or it failed. Comes once, later, unless this object is destroyed.
    void finished();

private:
    bool store(QByteArrayView bytes);
    void finish();

    RedactionScope redaction;
    QFile file;
    HttpExchange *exchange;
    GuideProblem failure = GuideProblem::None;
    QString reason;
};
