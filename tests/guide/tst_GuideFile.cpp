#include "guide/GuideEntries.h"
#include "guide/GuideFileImport.h"
#include "guide/GuideMatching.h"
#include "guide/GuideStore.h"
#include "guide/StoredGuide.h"
#include "support/TestMain.h"

#include <QBuffer>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// The steps of an update one by one: where they end before their file does.

namespace {

constexpr qint64 now = StoredGuide::now;
constexpr qint64 hour = StoredGuide::hour;

} // namespace

class tst_GuideFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void limits_data();
    void limits();
    void fileThatShrinks();
    void cancelledWhileItMatches();
    void entriesStop_data();
    void entriesStop();

private:
    /// Of a second guide.
    static GuideFileImport::Options options();

    std::unique_ptr<StoredGuide> guide;
    const QHash<QString, QString> corrections{}; ///< none
};

void tst_GuideFile::init()
{
    guide = std::make_unique<StoredGuide>();
    guide->addEntry(u"http://h/1"_s, u"Channel One"_s, uR"(tvg-id="one")"_s);
    guide->addChannel(u"one"_s, u"First"_s);
    guide->addProgramme(u"one"_s, now, now + hour, u"News"_s);
    guide->addProgramme(u"one"_s, now + hour, 0, u"Film"_s);
    QCOMPARE(guide->store().programmes, 2);
}

GuideFileImport::Options tst_GuideFile::options()
{
    GuideFileImport::Options made;
    made.guide = 2;
    made.firstChannel = 100;
    made.now = now;
    made.cancelled = [] { return false; };
    made.tookBytes = [](qint64) {};
    return made;
}

void tst_GuideFile::limits_data()
{
    QTest::addColumn<qint64>("bytesLeft"); // above those of the file
    QTest::addColumn<qint64>("programmes");
    QTest::addColumn<GuideProblem>("problem");
    QTest::newRow("as large as may be") << 0LL << 2LL << GuideProblem::None;
    QTest::newRow("too many bytes") << -1LL << 2LL << GuideProblem::TooLarge;
    QTest::newRow("too many programmes") << 0LL << 1LL << GuideProblem::TooLarge;
}

void tst_GuideFile::limits()
{
    QFETCH(const qint64, bytesLeft);
    QFETCH(const qint64, programmes);
    QFETCH(const GuideProblem, problem);
    GuideStore store(guide->path(), GuideStore::Mode::Write);
    QVERIFY(store.open());
    GuideMatching matching(store, corrections, [] { return false; });
    GuideFileImport::Options limited = options();
    limited.mostBytes = guide->guideText().size() + bytesLeft;
    limited.mostProgrammes = programmes;
    GuideFileImport import(store, matching, limited);
    QFile file(guide->job().guides.first().path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(import.run(file), problem);
    QVERIFY(import.isGood());
}

/// As one that another program writes anew meanwhile.
void tst_GuideFile::fileThatShrinks()
{
    constexpr qint64 bytesLeft = 1000;
    const QByteArray text = "<tv>" + QByteArray(1'000'000, ' ') + "</tv>";
    const QString path = guide->job(text).guides.first().path;
    GuideStore store(guide->path(), GuideStore::Mode::Write);
    QVERIFY(store.open());
    GuideMatching matching(store, corrections, [] { return false; });
    GuideFileImport::Options shrinking = options();
    qint64 taken = 0;
    shrinking.tookBytes = [&](qint64 bytes) {
        taken += bytes;
        QVERIFY(QFile::resize(path, bytesLeft));
    };
    GuideFileImport import(store, matching, shrinking);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(import.run(file), GuideProblem::CutShort);
    QVERIFY(taken > bytesLeft && taken < text.size());
}

void tst_GuideFile::cancelledWhileItMatches()
{
    for (int number = 0; number < 5000; ++number) {
        guide->addEntry(u"http://h/more/%1"_s.arg(number), u"More"_s);
    }
    QCOMPARE(guide->store().channels, 5001);
    GuideStore store(guide->path(), GuideStore::Mode::Write);
    QVERIFY(store.open());
    int questions = 0;
    GuideMatching matching(store, corrections, [&questions] { return ++questions == 2; });
    QVERIFY(!matching.match(1));
    QCOMPARE(questions, 2);
    QCOMPARE(matching.entries(), 2000);
}

void tst_GuideFile::entriesStop_data()
{
    QTest::addColumn<bool>("ofAccount");
    QTest::newRow("playlist") << false;
    QTest::newRow("account") << true;
}

void tst_GuideFile::entriesStop()
{
    QFETCH(const bool, ofAccount);
    QStringList taken;
    const auto take = [&taken](const GuideSourceEntry &entry) {
        taken << entry.id;
        return taken.size() < 2;
    };
    if (ofAccount) {
        QVERIFY(!readAccountEntries(
            R"([{"stream_id":1},{"stream_id":2},{"stream_id":3},{"stream_id":4}])"_ba, take));
        QCOMPARE(taken, QStringList({u"1"_s, u"2"_s}));
    } else {
        QBuffer playlist;
        for (int number = 1; number <= 4; ++number) {
            playlist.buffer() += "#EXTINF:-1,A\nhttp://h/" + QByteArray::number(number) + '\n';
        }
        QVERIFY(playlist.open(QIODevice::ReadOnly));
        QVERIFY(!readPlaylistEntries(playlist, take));
        QCOMPARE(taken, QStringList({u"http://h/1"_s, u"http://h/2"_s}));
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_GuideFile)
#include "tst_GuideFile.moc"
