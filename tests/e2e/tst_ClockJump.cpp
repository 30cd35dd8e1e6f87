// The computer's clock is set by a day or two while a film plays: it plays on, and the lists stay.

#include "e2e/AccountTest.h"
#include "fakeprovider/Streams.h"
#include "model/SourceManager.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <cstdlib>

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

constexpr qint64 daySeconds = 86400;

} // namespace

class TestClockJump : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void aFilmPlaysOn_data();
    void aFilmPlaysOn();

private:
    void fill() override;
    bool setClock(const QByteArray &offset);
    int playedSeconds() const;
    bool refreshes() const;
    /// When the lists were fetched, by the player's clock, from now.
    static qint64 fetchedFromNow()
    {
        return SourceManager(nullptr).sources().constFirst().lastUpdated -
               QDateTime::currentSecsSinceEpoch();
    }

    QTemporaryDir folder;
    const QString film = u"Film"_s;
};

/// The player's wall clock follows a file. Its monotonic clock goes on, as it does in reality.
void TestClockJump::fill()
{
    provider->addFilm(film, u"mp4"_s, [](const HttpRequest &) {
        return HttpReply::file(streamPath(u"film-faststart.mp4"_s));
    });
    QVERIFY(setClock("+0"));
    qputenv("FAKETIME_TIMESTAMP_FILE", QFile::encodeName(folder.filePath(u"clock"_s)));
    qputenv("FAKETIME_NO_CACHE", "1");
    qputenv("FAKETIME_DONT_FAKE_MONOTONIC", "1");
    qputenv("LD_PRELOAD", VANTIRO_FAKETIME);
}

bool TestClockJump::setClock(const QByteArray &offset)
{
    QFile file(folder.filePath(u"clock"_s));
    return file.open(QIODevice::WriteOnly) && file.write(offset) == offset.size();
}

/// By the time label; -1 while it shows none.
int TestClockJump::playedSeconds() const
{
    static const QRegularExpression label(u"\"(\\d\\d):(\\d\\d) / 01:00\""_s);
    const QRegularExpressionMatch match = label.match(session->window.describe());
    return match.hasMatch() ? match.captured(1).toInt() * 60 + match.captured(2).toInt() : -1;
}

bool TestClockJump::refreshes() const
{
    const int before = provider->requestCount(XtreamAction::vodStreams);
    return session->clickButton(u"Refresh Playlist"_s) && QTest::qWaitFor([&] {
               return provider->requestCount(XtreamAction::vodStreams) == before + 1;
           });
}

void TestClockJump::aFilmPlaysOn_data()
{
    QTest::addColumn<QByteArray>("offset");
    QTest::addColumn<qint64>("seconds");
    QTest::newRow("back a day") << "-1d"_ba << -daySeconds;
    QTest::newRow("forward two days") << "+2d"_ba << 2 * daySeconds;
}

void TestClockJump::aFilmPlaysOn()
{
    QFETCH(const QByteArray, offset);
    QFETCH(const qint64, seconds);
    constexpr qint64 tolerance = 600;
    // A stream that stands still is given up after 15 seconds.
    constexpr int beyondStall = 17;
    QVERIFY(session->openAll(UiTexts::moviesTab));
    QVERIFY(session->watch(film));
    QVERIFY(setClock(offset));
    const int start = playedSeconds();
    QTRY_VERIFY_WITH_TIMEOUT(playedSeconds() >= start + beyondStall, 60'000);
    QVERIFY(session->seesPicture());
    QVERIFY(session->hasOneWindow());
    QVERIFY(session->showsLabel(UiTexts::playing(film)));

    QVERIFY(refreshes());
    QTRY_VERIFY(std::abs(fetchedFromNow() - seconds) < tolerance);
    QVERIFY(session->close());
    // The clock is right again.
    QVERIFY(setClock("+0"));
    QVERIFY(session->start());
    QVERIFY(session->openAll(UiTexts::moviesTab));
    QVERIFY(session->watch(film));
}

VANTIRO_TEST_MAIN(TestClockJump)
#include "tst_ClockJump.moc"
