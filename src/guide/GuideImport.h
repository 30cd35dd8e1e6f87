#pragma once

#include "guide/GuideResult.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QtGlobal>

#include <atomic>

class GuideMatching;
class GuideStore;

/// What an update of a source's guide takes in.
struct GuideImportJob
{
    struct File
    {
        QString address; ///< where it came from; kept as a checksum only
        QString shown;   ///< the address without its credentials
        QString path;    ///< of the file to read; empty with a problem
        GuideProblem problem = GuideProblem::None;
        QString detail;
    };

    QString storePath;
    /// The file with the source's channels: a playlist, or the reply with an account's live
    /// channels. When it is empty, they are as they were at the last update.
    QString entriesPath;
    bool entriesAreOfAccount = false;
    QString entriesProblem; ///< why there is no file; empty when nothing failed
    QList<File> guides;     ///< in the order of preference
    /// Reads no files: matches the entries with the stored channels anew.
    bool onlyMatches = false;
    /// Guide ids that the user chose, by the entries' ids; empty for an entry without a guide.
    QHash<QString, QString> corrections;
    QString language; ///< preferred for titles, for instance "de"
    qint64 now = 0;   ///< seconds since the epoch
};

/// Makes one update of a stored guide, in one transaction: readers see the guide as it was until it
/// is done. Of an address with a problem the guide of the last update stays.
class GuideImport final
{
public:
    explicit GuideImport(GuideImportJob importJob);

    /// Makes the update. On any thread, which it keeps busy for seconds.
    GuideResult run();
    /// Ends run() soon, with nothing changed. Any thread.
    void cancel() { cancelled = true; }
    /// How much of the files was read, in percent. Any thread.
    int percent() const;

private:
    bool update(GuideStore &store);
    bool matchAgain(GuideStore &store, GuideMatching &matching);
    bool takeEntries(GuideStore &store);
    bool removeOldGuides(GuideStore &store);
    bool takeGuide(GuideStore &store, GuideMatching &matching, const GuideImportJob::File &file);
    GuideAddressResult importFile(GuideStore &store, GuideMatching &matching,
                                  const GuideImportJob::File &file, qint64 guide);
    bool finish(GuideStore &store, const GuideMatching &matching);

    const GuideImportJob job;
    std::atomic<bool> cancelled = false;
    std::atomic<qint64> readBytes = 0;
    std::atomic<qint64> allBytes = 0;
    GuideResult result;
};
