#pragma once

#include "guide/GuideResult.h"
#include "guide/XmltvScanner.h"

#include <QByteArrayView>
#include <QHash>
#include <QString>
#include <QtGlobal>

#include <functional>
#include <vector>

class GuideMatching;
class GuideStore;

class QIODevice;

/// Reads one XMLTV file, packed or not, into the store, within a transaction of the caller. Only
/// programmes of channels that an entry of the source matches are stored, and only those that the
/// archive holds or that come within a week.
class GuideFileImport final : private XmltvHandler
{
public:
    struct Options
    {
        qint64 guide = 0;        ///< its number in the store; its channels were removed
        qint64 now = 0;          ///< seconds since the epoch
        QString language;        ///< preferred for titles
        qint64 firstChannel = 1; ///< the number of its first channel; later ones count on
        qint64 mostBytes = 1024LL * 1024 * 1024; ///< of one guide, as unpacked
        qint64 mostProgrammes = 5'000'000;
        std::function<bool()> cancelled;
        std::function<void(qint64)> tookBytes; ///< as they stand in the file
    };

    GuideFileImport(GuideStore &guideStore, GuideMatching &guideMatching, Options importOptions);

    /// What came of it; anything but GuideProblem::None, and a false `isGood()`, asks the caller to
    /// roll back.
    GuideProblem run(QIODevice &file);
    /// False when the store failed, or when it was cancelled.
    bool isGood() const { return good; }
    bool sawUnknownZone() const { return scanner.sawUnknownZone(); }
    qint64 programmes() const { return storedProgrammes; }
    /// The number behind that of its last channel.
    qint64 nextChannel() const { return nextNumber; }

private:
    struct Row
    {
        qint64 key = 0;
        qint64 stop = 0;
        QString title;
        QString description;
    };

    void channel(const XmltvChannel &channel) override;
    bool wantsProgramme(const QString &channel, qint64 start) override;
    void programme(const XmltvProgramme &programme) override;

    bool takeUnpacked(QByteArrayView bytes);
    GuideProblem read(QIODevice &file);
    qint64 numberOf(const QString &id, const QString &names);
    void matchChannels();
    void flush();
    bool dropUnwanted();
    bool countProgrammes(qint64 &count);

    GuideStore &store;
    GuideMatching &matching;
    Options options;
    XmltvScanner scanner;

    QHash<QString, qint64> numbers; ///< of the channels, by their ids
    qint64 nextNumber;
    qint64 matchedBefore = 0; ///< channels with lower numbers were known when they were matched
    bool tookUnmatched = false;
    std::vector<Row> batch;
    qsizetype batchTexts = 0; ///< UTF-16 units
    qint64 unpackedBytes = 0;
    qint64 takenProgrammes = 0;
    qint64 storedProgrammes = 0;
    GuideProblem problem = GuideProblem::None;
    bool good = true;
};
