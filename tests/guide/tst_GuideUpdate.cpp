#include "app/NetLog.h"
#include "fakeprovider/Gzip.h"
#include "fakeprovider/HttpServer.h"
#include "guide/GuideReader.h"
#include "guide/GuideUpdate.h"
#include "guide/StoredGuide.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"

#include <QDir>
#include <QSignalSpy>
#include <QTest>

#include <chrono>
#include <filesystem>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

// What an update asks for, and what becomes of the answers; tst_GuideImport shows how they are
// stored. Runs with VANTIRO_NET_DEBUG=1 in its environment.

namespace {

const QString guidePath = u"/guide.xml.gz"_s;
const QString playlistPath = u"/list.m3u"_s;

} // namespace

class tst_GuideUpdate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void playlist();
    void account();
    void localFiles();
    void foldersLeftBehind();
    void packedOnTheWay();
    void redirected();
    void ofUnknownLength();
    void secureAddress();
    void failures_data();
    void failures();
    void tooLarge();
    void noFolder();
    void noChannels();
    void restarted();
    void cancelledWhileItIsFetched();
    void cancelledWhileItIsStored();
    void restartedWhileItIsStored();
    void progress();
    void tracesShowNoPassword();

private:
    GuideUpdateRequest request() const;
    /// An update that reads a file for seconds; begins it and waits until it does.
    void beginLong();
    /// Runs an update to its end.
    std::optional<GuideResult> update(const GuideUpdateRequest &wanted);
    QString runningTitle(const QString &entry) const;
    QStringList leftFiles() const;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<HttpServer> server;
    std::unique_ptr<GuideUpdate> updater;
    std::unique_ptr<StoredGuide> contents;
};

void tst_GuideUpdate::init()
{
    folder = std::make_unique<QTemporaryDir>();
    server = std::make_unique<HttpServer>();
    updater = std::make_unique<GuideUpdate>(nullptr);
    contents = std::make_unique<StoredGuide>();
    contents->addEntry(u"http://h/1"_s, u"One"_s, uR"(tvg-id="one")"_s);
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    contents->addChannel(u"one"_s, u"One"_s);
    contents->addProgramme(u"one"_s, now - 3600, now + 3600, u"News"_s);
    server->on(playlistPath, bodyReply(contents->playlistText()));
    server->on(guidePath, bodyReply(packedWithGzip(contents->guideText())));
}

void tst_GuideUpdate::cleanup()
{
    updater.reset();
    QTRY_COMPARE(leftFiles().filter(u"update-"_s), QStringList());
}

GuideUpdateRequest tst_GuideUpdate::request() const
{
    GuideUpdateRequest wanted;
    wanted.source = defaultSourceConfig();
    wanted.source.url = server->url(playlistPath);
    wanted.storePath = folder->filePath(u"guides/s.sqlite"_s);
    wanted.addresses = {server->url(guidePath)};
    return wanted;
}

std::optional<GuideResult> tst_GuideUpdate::update(const GuideUpdateRequest &wanted)
{
    std::optional<GuideResult> result;
    connect(updater.get(), &GuideUpdate::finished, this,
            [&result](const GuideResult &answer) { result = answer; });
    updater->start(wanted);
    if (result || !updater->isRunning() ||
        !QTest::qWaitFor([&result] { return result.has_value(); }, 20'000)) {
        return std::nullopt;
    }
    disconnect(updater.get(), &GuideUpdate::finished, this, nullptr);
    return updater->isRunning() ? std::nullopt : result;
}

QString tst_GuideUpdate::runningTitle(const QString &entry) const
{
    GuideReader reader(request().storePath, 0);
    const OnNow found = reader.onNow({entry}, QDateTime::currentSecsSinceEpoch()).value(entry);
    return found.now.value_or(GuideProgramme()).title;
}

QStringList tst_GuideUpdate::leftFiles() const
{
    return QDir(folder->filePath(u"guides"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
}

void tst_GuideUpdate::playlist()
{
    const auto result = update(request());
    QVERIFY(result);
    QCOMPARE(result->matched, 1);
    QCOMPARE(result->addresses.size(), 1);
    QCOMPARE(result->addresses.first().problem, GuideProblem::None);
    QCOMPARE(result->addresses.first().address, server->url(guidePath));
    QCOMPARE(runningTitle(u"http://h/1"_s), u"News"_s);
    QCOMPARE(server->requests().size(), 2);
    // The bytes come as they are.
    QCOMPARE(server->requests().last().header("Accept-Encoding"), "gzip");
}

void tst_GuideUpdate::account()
{
    server->on(u"/player_api.php"_s, bodyReply(R"([{"stream_id":5,"epg_channel_id":"one"}])"_ba));
    server->on(u"/xmltv.php"_s, bodyReply(contents->guideText()));
    GuideUpdateRequest wanted = request();
    wanted.source.type = SourceType::Xtream;
    wanted.source.url = server->url() + u'/';
    wanted.source.username = u"joe"_s;
    wanted.source.password = u"p&w"_s;
    wanted.addresses = {GuideUpdateRequest::accountGuide};
    const auto result = update(wanted);
    QVERIFY(result);
    QCOMPARE(result->matched, 1);
    QVERIFY(!result->addresses.first().address.contains("p%26w"_L1));
    QCOMPARE(runningTitle(u"5"_s), u"News"_s);
    QCOMPARE(server->requests().size(), 2);
    QCOMPARE(server->requests().first().target,
             u"/player_api.php?username=joe&password=p%26w&action=get_live_streams"_s);
    QCOMPARE(server->requests().last().target, u"/xmltv.php?username=joe&password=p%26w"_s);
}

void tst_GuideUpdate::localFiles()
{
    GuideUpdateRequest wanted = request();
    wanted.source.url = folder->filePath(u"list.m3u"_s);
    wanted.addresses = {folder->filePath(u"guide.xml"_s), folder->filePath(u"missing.xml"_s)};
    writeFile(wanted.source.url, contents->playlistText());
    writeFile(wanted.addresses.first(), contents->guideText());
    const auto result = update(wanted);
    QVERIFY(result);
    QCOMPARE(result->programmes, 1);
    QCOMPARE(result->addresses.last().problem, GuideProblem::FileNotOpened);
    QVERIFY(!result->addresses.last().detail.isEmpty());
    QVERIFY(server->requests().isEmpty());
    QVERIFY(QFile::exists(wanted.addresses.first()));
}

void tst_GuideUpdate::foldersLeftBehind()
{
    // As of updates of programs that were killed.
    QDir guides(folder->filePath(u"guides"_s));
    for (const QString &name : {u"update-old"_s, u"update-new"_s}) {
        QVERIFY(guides.mkpath(name));
        writeFile(guides.filePath(name + u"/guide-0"_s), "x");
    }
#ifdef Q_OS_WIN
    QSKIP("Wine does not set the time of a folder");
#endif
    namespace fs = std::filesystem;
    fs::last_write_time(guides.filePath(u"update-old"_s).toStdU16String(),
                        fs::file_time_type::clock::now() - 48h);
    QVERIFY(update(request()));
    QVERIFY(!guides.exists(u"update-old"_s));
    QVERIFY(guides.exists(u"update-new/guide-0"_s)); // another program's, perhaps
    QVERIFY(QDir(guides.filePath(u"update-new"_s)).removeRecursively());
}

void tst_GuideUpdate::packedOnTheWay()
{
    HttpReply reply = bodyReply(packedWithGzip(packedWithGzip(contents->guideText())));
    reply.headers = {{"Content-Encoding", "gzip"}};
    server->on(guidePath, reply);
    const auto result = update(request());
    QVERIFY(result);
    QCOMPARE(result->programmes, 1);
}

void tst_GuideUpdate::redirected()
{
    server->on(u"/moved"_s, HttpReply::redirect(server->url(guidePath)));
    GuideUpdateRequest wanted = request();
    wanted.addresses = {server->url(u"/moved"_s)};
    const auto result = update(wanted);
    QVERIFY(result);
    QCOMPARE(result->programmes, 1);
}

void tst_GuideUpdate::ofUnknownLength()
{
    HttpReply reply = bodyReply(contents->guideText() + QByteArray(300'000, '\n'));
    reply.chunked = true;
    reply.bytesPerSecond = 1'000'000;
    server->on(guidePath, reply);
    const auto result = update(request());
    QVERIFY(result);
    QCOMPARE(result->programmes, 1);
    QCOMPARE(runningTitle(u"http://h/1"_s), u"News"_s);
}

/// It is asked, although nobody answers there.
void tst_GuideUpdate::secureAddress()
{
    GuideUpdateRequest wanted = request();
    wanted.addresses = {u"HTTPS://127.0.0.1:1/guide.xml"_s, u"http:///nowhere"_s};
    const auto result = update(wanted);
    QVERIFY(result);
    QCOMPARE(result->addresses.size(), 2);
    for (const GuideAddressResult &address : result->addresses) {
        QCOMPARE(address.problem, GuideProblem::NotReachable);
    }
}

void tst_GuideUpdate::failures_data()
{
    QTest::addColumn<HttpReply>("reply");
    QTest::addColumn<GuideProblem>("problem");
    QTest::newRow("unavailable") << statusReply(503, "<tv></tv>"_ba) << GuideProblem::NotReachable;
    QTest::newRow("a page") << bodyReply("<html></html>"_ba) << GuideProblem::NotAGuide;
    QTest::newRow("connection lost")
        << cutShort(bodyReply(QByteArray(100'000, 'x')), 5000) << GuideProblem::NotReachable;
    QTest::newRow("leads to a file")
        << HttpReply::redirect(u"file:///etc/hostname"_s) << GuideProblem::NotReachable;
}

void tst_GuideUpdate::failures()
{
    QFETCH(HttpReply, reply);
    QFETCH(GuideProblem, problem);
    QVERIFY(update(request()));
    server->on(guidePath, reply);
    GuideUpdateRequest wanted = request();
    wanted.addresses << server->url(u"/other"_s);
    server->on(u"/other"_s, bodyReply(contents->guideText()));
    const auto result = update(wanted);
    QVERIFY(result);
    QCOMPARE(result->addresses.first().problem, problem);
    QCOMPARE(result->addresses.first().detail.isEmpty(), problem == GuideProblem::NotAGuide);
    QCOMPARE(result->addresses.last().problem, GuideProblem::None);
    // The guide of the last update, and the other one.
    QCOMPARE(result->programmes, 2);
    QCOMPARE(runningTitle(u"http://h/1"_s), u"News"_s);
}

/// One that announces its length; of others the bytes are counted.
void tst_GuideUpdate::tooLarge()
{
    QVERIFY(update(request()));
    HttpReply reply;
    reply.producer = [](qint64) { return QByteArray(1000, ' '); };
    reply.producedBytes = 1024LL * 1024 * 1024 + 1;
    server->on(guidePath, reply);
    const auto result = update(request());
    QVERIFY(result);
    QCOMPARE(result->addresses.first().problem, GuideProblem::TooLarge);
    QCOMPARE(runningTitle(u"http://h/1"_s), u"News"_s);
}

void tst_GuideUpdate::noFolder()
{
    writeFile(folder->filePath(u"guides"_s), "a file in the folder's place");
    const auto result = update(request());
    QVERIFY(result);
    QCOMPARE(result->addresses.size(), 1);
    QCOMPARE(result->addresses.first().problem, GuideProblem::NotStored);
    QCOMPARE(result->addresses.first().detail, request().storePath);
    QCOMPARE(readFile(folder->filePath(u"guides"_s)), "a file in the folder's place");
}

void tst_GuideUpdate::noChannels()
{
    QVERIFY(update(request()));
    server->on(playlistPath, statusReply(404));
    const auto result = update(request());
    QVERIFY(result);
    QCOMPARE(result->addresses.first().problem, GuideProblem::ChannelsNotLoaded);
    QVERIFY(!result->addresses.first().detail.isEmpty());
    QCOMPARE(result->channels, 1);
    QCOMPARE(runningTitle(u"http://h/1"_s), u"News"_s);
}

void tst_GuideUpdate::restarted()
{
    server->on(guidePath, held(bodyReply(contents->guideText())));
    updater->start(request());
    QTRY_COMPARE(server->requestCount(guidePath), 1);
    server->on(guidePath, bodyReply(contents->guideText()));
    QVERIFY(update(request()));
    QCOMPARE(runningTitle(u"http://h/1"_s), u"News"_s);
}

void tst_GuideUpdate::cancelledWhileItIsFetched()
{
    server->on(guidePath, held(bodyReply(contents->guideText())));
    const QSignalSpy finished(updater.get(), &GuideUpdate::finished);
    updater->start(request());
    QTRY_COMPARE(server->openConnections(guidePath), 1);
    updater->cancel();
    QVERIFY(!updater->isRunning());
    QTRY_COMPARE(server->openConnections(guidePath), 0);
    QCOMPARE(leftFiles(), QStringList());
    QCOMPARE(finished.count(), 0);
}

void tst_GuideUpdate::beginLong()
{
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    for (int number = 0; number < 200'000; ++number) {
        contents->addProgramme(u"one"_s, now + number, 0, u"New"_s);
    }
    GuideUpdateRequest wanted = request();
    wanted.source.url = folder->filePath(u"list.m3u"_s);
    wanted.addresses = {folder->filePath(u"guide.xml"_s)};
    writeFile(wanted.source.url, contents->playlistText());
    writeFile(wanted.addresses.first(), contents->guideText());
    const QSignalSpy finished(updater.get(), &GuideUpdate::finished);
    const QSignalSpy progressed(updater.get(), &GuideUpdate::progressed);
    updater->start(wanted);
    QTRY_VERIFY(progressed.count() >= 2); // it reads the file
    QCOMPARE(finished.count(), 0);
}

void tst_GuideUpdate::cancelledWhileItIsStored()
{
    QVERIFY(update(request()));
    const QSignalSpy finished(updater.get(), &GuideUpdate::finished);
    beginLong();
    updater->cancel();
    updater.reset(); // waits for the thread
    QCOMPARE(finished.count(), 0);
    QCOMPARE(runningTitle(u"http://h/1"_s), u"News"_s);
}

void tst_GuideUpdate::restartedWhileItIsStored()
{
    beginLong();
    // Nothing comes of the one that was under way.
    const auto result = update(request());
    QVERIFY(result);
    QVERIFY(!result->cancelled);
    QCOMPARE(result->programmes, 1);
    QCOMPARE(runningTitle(u"http://h/1"_s), u"News"_s);
}

void tst_GuideUpdate::progress()
{
    HttpReply slow = bodyReply(contents->guideText() + QByteArray(300'000, '\n'));
    slow.bytesPerSecond = 600'000;
    server->on(guidePath, slow);
    const QSignalSpy progressed(updater.get(), &GuideUpdate::progressed);
    QVERIFY(update(request()));
    QList<int> percents;
    for (const auto &arguments : progressed) {
        percents << arguments.first().toInt();
    }
    QVERIFY(percents.size() >= 4);
    QCOMPARE(percents.first(), -1);
    QVERIFY(std::is_sorted(percents.cbegin(), percents.cend()));
    QVERIFY(percents.contains(70));
    QVERIFY(percents.last() <= 100);
}

void tst_GuideUpdate::tracesShowNoPassword()
{
    QVERIFY2(netDebugEnabled(), "run this test with VANTIRO_NET_DEBUG=1");
    server->on(u"/player_api.php"_s, bodyReply(R"([{"stream_id":5,"epg_channel_id":"one"}])"_ba));
    server->on(u"/xmltv.php"_s, statusReply(404));
    GuideUpdateRequest wanted = request();
    wanted.source.type = SourceType::Xtream;
    wanted.source.url = server->url();
    wanted.source.username = u"joe"_s;
    wanted.source.password = u"Guide-Pw"_s;
    wanted.addresses = {GuideUpdateRequest::accountGuide};
    TraceCapture trace;
    const auto result = update(wanted);
    const QString text = trace.take();
    QVERIFY(result);
    QCOMPARE(text.count(u'\n'), 4);
    QVERIFY2(!text.contains("Guide-Pw"_L1), qPrintable(text));
    QVERIFY(!guideResultToJson(*result).contains("Guide-Pw"_L1));
}

VANTIRO_TEST_GUILESS_MAIN(tst_GuideUpdate)
#include "tst_GuideUpdate.moc"
