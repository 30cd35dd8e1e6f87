// What is stored on a disk that fills up, or by a program that ends in the middle of a write: all
// of it or none of it, and the next write repairs it.

#include "fakeprovider/HttpServer.h"
#include "faults/FullDisk.h"
#include "guide/GuideDownload.h"
#include "guide/GuideImport.h"
#include "guide/GuideReader.h"
#include "guide/StoredGuide.h"
#include "library/LibraryBackup.h"
#include "library/LibraryStore.h"
#include "model/CatalogCache.h"
#include "model/SourceManager.h"
#include "providers/SampleCatalogs.h"
#include "support/HttpReplies.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"
#include "ui/PlaylistCopy.h"
#include "ui/PosterImage.h"
#include "ui/PosterStore.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QNetworkAccessManager>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

QString cacheFile()
{
    return PrivateProfile::current().appDataDir() + "/catalog_cache/A.json"_L1;
}

CatalogCache::Section sectionOf(int channels)
{
    CatalogCache::Section section;
    for (int number = 0; number < channels; ++number) {
        section.items.append(channel(u"Channel %1"_s.arg(number), u"http://x/1"_s, u"News"_s));
    }
    return section;
}

/// How many entries the cache gives for a section; -1 for none.
qsizetype cachedItems(const QString &section)
{
    CatalogCache::Section loaded;
    return CatalogCache::load(u"A"_s, section, loaded) ? loaded.items.size() : -1;
}

/// A picture that does not pack well.
QByteArray jpeg()
{
    QImage image(200, 300, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(x, y, qRgb(x * y, x * 7 + y * 3, x ^ y));
        }
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPG", 95);
    return bytes;
}

} // namespace

class tst_FullDisk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { PrivateProfile::current().clear(); }

    void catalog_data();
    void catalog();
    void sources();
    void sourcesThatNeedMoreRoom();
    void library();
    void backup();
    void guide();
    void guideDownload_data();
    void guideDownload();
    void playlistCopy();
    void poster();
};

void tst_FullDisk::catalog_data()
{
    QTest::addColumn<int>("channels");
    // Below and above the size in which a file is buffered.
    QTest::newRow("a small change") << 3;
    QTest::newRow("a large change") << 500;
}

void tst_FullDisk::catalog()
{
    QFETCH(const int, channels);
    CatalogCache::save(u"A"_s, u"live"_s, sectionOf(2));
    CatalogCache::save(u"A"_s, u"movie"_s, sectionOf(channels));
    const qint64 size = QFileInfo(cacheFile()).size();
    // Every length at which the write may end.
    for (qint64 bytes = 0; bytes < size; bytes += std::max<qint64>(1, size / 200)) {
        QFile::remove(cacheFile());
        CatalogCache::save(u"A"_s, u"live"_s, sectionOf(2));
        {
            const FullDisk full(bytes);
            CatalogCache::save(u"A"_s, u"movie"_s, sectionOf(channels));
        }
        QVERIFY2(cachedItems(u"movie"_s) == -1, qPrintable(QString::number(bytes)));
        const qsizetype live = cachedItems(u"live"_s);
        QVERIFY2(live == 2 || live == -1, qPrintable(QString::number(bytes)));
        CatalogCache::save(u"A"_s, u"movie"_s, sectionOf(channels));
        QCOMPARE(cachedItems(u"movie"_s), channels);
    }
}

void tst_FullDisk::sources()
{
    const auto settings = [] { return readFile(PrivateProfile::current().settingsFile()); };
    // Every length at which the write may end; the file has some 300 bytes then.
    for (int bytes = 0; bytes < 300; bytes += 10) {
        init();
        SourceManager manager(nullptr);
        manager.saveSource(playlistSource(u"A"_s, u"a"_s));
        const QByteArray before = settings();
        QVERIFY(before.contains("name=A\n"));
        {
            const FullDisk full(bytes);
            QVERIFY(!manager.setSources({playlistSource(u"D"_s, u"d"_s)}));
            QCOMPARE(manager.sources().size(), 1);
            manager.saveSource(playlistSource(u"B"_s, u"b"_s));
            manager.setLastActiveSourceName(u"B"_s);
            QCOMPARE(settings(), before);
        }
        // What could not be stored is stored with the next change.
        manager.saveSource(playlistSource(u"C"_s, u"c"_s));
        for (const QByteArray &line :
             {"name=A\n"_ba, "name=B\n"_ba, "name=C\n"_ba, "size=3\n"_ba}) {
            QVERIFY2(settings().contains(line), settings().constData());
        }
        QCOMPARE(QFileInfo(PrivateProfile::current().settingsFile()).dir().count(), 3U);
    }
}

void tst_FullDisk::sourcesThatNeedMoreRoom()
{
    const auto settings = [] { return readFile(PrivateProfile::current().settingsFile()); };
    SourceManager manager(nullptr);
    manager.saveSource(playlistSource(u"A"_s, u"a"_s));
    const QByteArray before = settings();
    {
        const FullDisk full(100'000);
        QVERIFY(!manager.setSources({playlistSource(u"D"_s, QString(200'000, u'd'))}));
    }
    QCOMPARE(manager.sources().size(), 1);
    QCOMPARE(settings(), before);
    manager.setLastActiveSourceName(u"A"_s);
    QVERIFY(settings().contains("name=A\n"));
    QVERIFY(!settings().contains("name=D\n"));
}

void tst_FullDisk::library()
{
    using Result = LibraryStore::Result;
    const QString path = PrivateProfile::current().appDataDir() + "/library.sqlite"_L1;
    const auto favorites = [](const QStringList &ids) {
        LibraryChange change;
        for (const QString &id : ids) {
            change.put.favorites.append({{u"A"_s, EntryKind::Movie, id, {}, {}}, 0, 0});
        }
        return change;
    };
    LibraryStore store(path);
    QCOMPARE(store.apply({favorites({u"1"_s})}), Result::Done);
    const LibraryChange second = favorites({u"2"_s, QString(300'000, u'x')});
    {
        const FullDisk full(200'000);
        QCOMPARE(store.apply({second}), Result::Unavailable);
        QVERIFY(!store.errorText().isEmpty());
    }
    LibraryRows rows;
    QCOMPARE(store.load(rows), Result::Done);
    QCOMPARE(rows.favorites.size(), 1);
    QCOMPARE(store.apply({second}), Result::Done);
    QCOMPARE(store.load(rows), Result::Done);
    QCOMPARE(rows.favorites.size(), 3);
}

void tst_FullDisk::backup()
{
    const QString path = PrivateProfile::current().root() + "/backup.json"_L1;
    LibraryBackup::Content content;
    QString error;
    QVERIFY(LibraryBackup::save(path, content, true, error));
    content.sources = {playlistSource(u"A"_s, u"a"_s)};
    content.sources[0].url += QString(300'000, u'x');
    {
        const FullDisk full(200'000);
        QVERIFY(!LibraryBackup::save(path, content, true, error));
        QVERIFY2(error.endsWith(u"File too large"_s), qPrintable(error));
    }
    const auto kept = LibraryBackup::load(path, error);
    QVERIFY2(kept, "a backup that cannot be written leaves the one before");
    QVERIFY(kept->sources.isEmpty());
}

void tst_FullDisk::guide()
{
    constexpr int many = 5000;
    constexpr qint64 now = StoredGuide::now;
    const QString entry = u"http://h/1"_s;
    StoredGuide contents;
    contents.addEntry(entry, u"One"_s, uR"(tvg-id="one")"_s);
    contents.addChannel(u"one"_s, u"One"_s);
    contents.addProgramme(u"one"_s, now, now + 60, u"Old"_s);
    QCOMPARE(contents.store().programmes, 1);
    contents.clearGuide();
    for (int number = 0; number < many; ++number) {
        const qint64 start = now + 60LL * number;
        contents.addProgramme(u"one"_s, start, start + 60, u"New %1"_s.arg(number));
    }
    const GuideImportJob job = contents.job();
    const auto runningTitle = [&] {
        const OnNow found = GuideReader(contents.path(), 0).onNow({entry}, now).value(entry);
        return found.now.value_or(GuideProgramme()).title;
    };
    for (const qint64 bytes : {0, 40'000, 100'000, 200'000}) {
        GuideResult result;
        {
            const FullDisk full(bytes);
            result = GuideImport(job).run();
        }
        QCOMPARE(result.addresses.constLast().problem, GuideProblem::NotStored);
        QVERIFY(!result.addresses.constLast().detail.isEmpty());
        QCOMPARE(runningTitle(), u"Old"_s);
    }
    QCOMPARE(GuideImport(job).run().programmes, many);
    QCOMPARE(runningTitle(), u"New 0"_s);
}

void tst_FullDisk::guideDownload_data()
{
    QTest::addColumn<qsizetype>("size");
    QTest::addColumn<qint64>("room");
    QTest::addColumn<QString>("path");
    const QString path = u"/guide.xml"_s;
    // Below and above the size in which a file is buffered.
    QTest::newRow("a small guide") << qsizetype(1000) << 0LL << path;
    QTest::newRow("a large guide") << qsizetype(1'000'000) << 500'000LL << path;
    QTest::newRow("no folder") << qsizetype(1000) << 1'000'000LL << u"/missing"_s + path;
}

void tst_FullDisk::guideDownload()
{
    QFETCH(const qsizetype, size);
    QFETCH(const qint64, room);
    QFETCH(const QString, path);
    const QByteArray body(size, 'x');
    HttpServer server;
    server.on(u"/guide"_s, bodyReply(body));
    QNetworkAccessManager network;
    const QString file = PrivateProfile::current().root() + path;
    const auto download = [&] {
        auto made = std::make_unique<GuideDownload>(&network, server.url(u"/guide"_s), QString(),
                                                    GuideDownload::Packing::Kept, file, nullptr);
        QSignalSpy finished(made.get(), &GuideDownload::finished);
        return finished.wait(20'000) ? std::move(made) : nullptr;
    };
    {
        const FullDisk full(room);
        const auto failed = download();
        QVERIFY(failed);
        QCOMPARE(failed->problem(), GuideProblem::NotStored);
        QVERIFY(!failed->detail().isEmpty());
    }
    QVERIFY(QDir().mkpath(QFileInfo(file).path()));
    const auto done = download();
    QVERIFY(done);
    QCOMPARE(done->problem(), GuideProblem::None);
    QCOMPARE(readFile(file), body);
}

void tst_FullDisk::playlistCopy()
{
    const QString path = PrivateProfile::current().root() + "/list.m3u"_L1;
    writeFile(path, twoChannels);
    SourceConfig config = playlistSource(u"A"_s, path);
    QString error;
    QVERIFY(storePlaylistCopy(config, &error));
    const QString copy = config.url;
    writeFile(path, twoChannels + QByteArray(100'000, '#'));
    config.url = path;
    {
        const FullDisk full(50'000);
        QVERIFY(!storePlaylistCopy(config, &error));
    }
    QVERIFY2(error.startsWith("The playlist \""_L1), qPrintable(error));
    QCOMPARE(config.url, path);
    QCOMPARE(readFile(copy), twoChannels);
    QCOMPARE(QFileInfo(copy).dir().count(), 3U); // no part of a copy beside it
}

void tst_FullDisk::poster()
{
    const QByteArray picture = jpeg();
    HttpServer server;
    server.on(u"/poster"_s, bodyReply(picture, "image/jpeg"_ba));
    const QString url = server.url(u"/poster"_s);
    const auto shows = [&url] {
        PosterStore store;
        store.request(url);
        return QTest::qWaitFor([&] { return !store.isBusy(); }, 20'000) &&
               !store.find(url).isNull();
    };
    {
        const FullDisk full(picture.size() / 2);
        QVERIFY(shows());
    }
    // Half a picture would decode.
    QVERIFY(!decodePoster(picture.first(picture.size() / 2)).isNull());
    QVERIFY(!QFile::exists(posterCachePath(url)));
    QVERIFY(shows());
    QCOMPARE(readFile(posterCachePath(url)), picture);
    QCOMPARE(QFileInfo(posterCachePath(url)).dir().count(), 3U);
}

VANTIRO_TEST_MAIN(tst_FullDisk)
#include "tst_FullDisk.moc"
