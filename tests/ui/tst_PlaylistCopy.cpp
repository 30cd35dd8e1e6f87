#include "model/SourceConfig.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"
#include "ui/PlaylistCopy.h"

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#endif

using namespace Qt::StringLiterals;

namespace {

QString playlistFolder()
{
    return PrivateProfile::current().appDataDir() + "/playlists"_L1;
}

/// The address that is stored for a source of that name and address. An error makes it "!" and the
/// error's text.
QString storedUrl(const QString &name, const QString &url, qint32 type = SourceType::Playlist)
{
    SourceConfig config = defaultSourceConfig();
    config.type = type;
    config.name = name;
    config.url = url;
    QString error;
    return storePlaylistCopy(config, &error) ? config.url : u'!' + error;
}

} // namespace

class tst_PlaylistCopy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void copyIsNamedAfterTheSource_data();
    void copyIsNamedAfterTheSource();
    void onlyALocalFileIsCopied_data();
    void onlyALocalFileIsCopied();
    void theStoredCopyIsKept();
    void renamingCopiesToTheNewName();
    void copyIsReadableByItsOwnerOnly();
    void aFailureIsTold_data();
    void aFailureIsTold();
    void aFailedCopyKeepsTheEarlierOne();
    void lacksItsFile_data();
    void lacksItsFile();

private:
    QString filePath(const QString &name) const { return directory->filePath(name); }

    std::unique_ptr<QTemporaryDir> directory;
    QString list; ///< the path of a file with "content"
};

void tst_PlaylistCopy::init()
{
    PrivateProfile::current().clear();
    directory = std::make_unique<QTemporaryDir>();
    list = filePath(u"a.m3u"_s);
    writeFile(list, "content"_ba);
}

void tst_PlaylistCopy::copyIsNamedAfterTheSource_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *title, const QString &name, const QString &file,
                        const QString &expected) {
        QTest::newRow(title) << name << file << expected;
    };
    row("signs become underscores", u"My List!"_s, u"a.m3u8"_s, u"My_List_.m3u8"_s);
    row("beyond the first plane, one underscore", u"TV😀"_s, u"a.m3u"_s, u"TV_.m3u"_s);
    row("an empty name", {}, u"a.m3u"_s, u"playlist.m3u"_s);
    row("no suffix", u"List"_s, u"channels"_s, u"List"_s);
    row("a dot at the end is no suffix", u"List"_s, u"channels."_s, u"List"_s);
    row("the last suffix", u"List"_s, u"a.b.c"_s, u"List.c"_s);
    row("the suffix as it is", u"List"_s, u"a.M3U8"_s, u"List.M3U8"_s);
    row("a hidden file's name is its suffix", u"List"_s, u".m3u"_s, u"List.m3u"_s);
    row("a path with blanks and umlauts", u"List"_s, u"meine größte Liste.m3u"_s, u"List.m3u"_s);
}

void tst_PlaylistCopy::copyIsNamedAfterTheSource()
{
    QFETCH(QString, name);
    QFETCH(QString, file);
    QFETCH(QString, expected);
    writeFile(filePath(file), "#EXTM3U\n"_ba);
    const QString copy = playlistFolder() + u'/' + expected;
    QCOMPARE(storedUrl(name, filePath(file)), copy);
    QCOMPARE(readFile(copy), "#EXTM3U\n"_ba);
    QVERIFY(QFile::exists(filePath(file)));
}

void tst_PlaylistCopy::onlyALocalFileIsCopied_data()
{
    QTest::addColumn<QString>("url");
    QTest::newRow("http") << u"http://127.0.0.1/list.m3u"_s;
    QTest::newRow("https") << u"https://127.0.0.1/list.m3u"_s;
    QTest::newRow("a scheme in capitals") << u"HTTP://127.0.0.1/list.m3u"_s;
    QTest::newRow("a scheme in mixed case") << u"HttpS://127.0.0.1/list.m3u"_s;
    QTest::newRow("another scheme") << u"ftp://127.0.0.1/list.m3u"_s;
    QTest::newRow("a file that is not there") << u"/nowhere/list.m3u"_s;
    QTest::newRow("a folder") << QDir::tempPath();
    QTest::newRow("nothing") << QString();
}

void tst_PlaylistCopy::onlyALocalFileIsCopied()
{
    QFETCH(QString, url);
    // Folders of that name make the addresses existing paths below the working folder.
    const QString before = QDir::currentPath();
    QDir::setCurrent(directory->path());
    writeFile(u"HTTP:/127.0.0.1/list.m3u"_s, "local"_ba);
    writeFile(u"https:/127.0.0.1/list.m3u"_s, "local"_ba);

    QCOMPARE(storedUrl(u"List"_s, url), url);
    // Nor is an account's address.
    QCOMPARE(storedUrl(u"List"_s, list, SourceType::Xtream), list);
    QVERIFY(!QFile::exists(playlistFolder()));
    QDir::setCurrent(before);
}

void tst_PlaylistCopy::theStoredCopyIsKept()
{
    const QString copy = storedUrl(u"List"_s, list);
    QCOMPARE(storedUrl(u"List"_s, copy), copy);
    QCOMPARE(readFile(copy), "content"_ba);
#ifndef Q_OS_WIN // where Qt makes shortcuts, which are no links
    const QString link = filePath(u"link.m3u"_s);
    QVERIFY(QFile::link(copy, link));
    QCOMPARE(storedUrl(u"List"_s, link), link);
    QCOMPARE(readFile(copy), "content"_ba);
#endif
}

void tst_PlaylistCopy::renamingCopiesToTheNewName()
{
    const QString old = storedUrl(u"Old"_s, list);
    const QString renamed = storedUrl(u"New"_s, old);
    QCOMPARE(renamed, playlistFolder() + "/New.m3u"_L1);
    QCOMPARE(readFile(renamed), "content"_ba);

    const QString capitals = storedUrl(u"NEW"_s, renamed);
    QCOMPARE(readFile(capitals), "content"_ba);
#ifdef Q_OS_WIN
    // One file under both names.
    QCOMPARE(capitals, renamed);
#else
    QCOMPARE(capitals, playlistFolder() + "/NEW.m3u"_L1);
#endif
}

void tst_PlaylistCopy::copyIsReadableByItsOwnerOnly()
{
#ifdef Q_OS_WIN
    QSKIP("Windows gives files in a user's folders to that user");
#endif
    // A file that is replaced, and a new one.
    const QString earlier = playlistFolder() + "/List.m3u"_L1;
    writeFile(earlier, "open to all, and longer"_ba);
    QFile::setPermissions(earlier, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    for (const QString &name : {u"List"_s, u"New"_s}) {
        const QString url = storedUrl(name, list);
        QCOMPARE(readFile(url), "content"_ba);
        // Qt lists the owner's permissions a second time, as the user's.
        QCOMPARE(QFile::permissions(url),
                 QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser);
    }
}

void tst_PlaylistCopy::aFailureIsTold_data()
{
    QTest::addColumn<bool>("opens");
    QTest::newRow("a file that cannot be opened") << false;
    QTest::newRow("a folder that cannot be made") << true;
}

void tst_PlaylistCopy::aFailureIsTold()
{
    QFETCH(bool, opens);
    if (opens) {
        // A file stands where the folder belongs.
        writeFile(playlistFolder(), "in the way"_ba);
    }
#ifdef Q_OS_UNIX
    // Whoever runs the test: the superuser reads every file.
    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{opens ? before.rlim_cur : 0, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
    const QString url = storedUrl(u"List"_s, list);
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &before), 0);
#else
    if (!opens) {
        QSKIP("no way to keep a file from being opened");
    }
    const QString url = storedUrl(u"List"_s, list);
#endif
    const QString beginning = u"!The playlist \"%1\" could not be copied: "_s.arg(list);
    QVERIFY2(url.startsWith(beginning) && url.size() > beginning.size(), qUtf8Printable(url));
    QVERIFY(!QFile::exists(playlistFolder() + "/List.m3u"_L1));
    QVERIFY(QFile::exists(list));
}

void tst_PlaylistCopy::aFailedCopyKeepsTheEarlierOne()
{
#ifdef Q_OS_LINUX
    const QString earlier = playlistFolder() + "/List.m3u"_L1;
    writeFile(earlier, "earlier"_ba);
    // Opens, but cannot be read: what it holds is the first page of this process's memory.
    const QString unreadable = filePath(u"mem.m3u"_s);
    QVERIFY(QFile::link(u"/proc/self/mem"_s, unreadable));
    QVERIFY(storedUrl(u"List"_s, unreadable).startsWith(u'!'));
    QCOMPARE(readFile(earlier), "earlier"_ba);
    QCOMPARE(QDir(playlistFolder()).entryList(QDir::Files), QStringList{u"List.m3u"_s});
#else
    QSKIP("no file that opens and cannot be read");
#endif
}

void tst_PlaylistCopy::lacksItsFile_data()
{
    QTest::addColumn<qint32>("type");
    QTest::addColumn<QString>("url"); ///< "*" stands for the folder of the test
    QTest::addColumn<bool>("lacks");
    QTest::newRow("there") << SourceType::Playlist << u"*/a.m3u"_s << false;
    QTest::newRow("gone") << SourceType::Playlist << u"*/b.m3u"_s << true;
    QTest::newRow("a folder") << SourceType::Playlist << u"*"_s << true;
    QTest::newRow("web") << SourceType::Playlist << u"HTTP://h/a.m3u"_s << false;
    QTest::newRow("account") << SourceType::Xtream << u"h:8080"_s << false;
    QTest::newRow("subscription") << SourceType::Zevrino << QString() << false;
}

void tst_PlaylistCopy::lacksItsFile()
{
    QFETCH(const qint32, type);
    QFETCH(QString, url);
    SourceConfig config = defaultSourceConfig();
    config.type = type;
    config.url = url.replace(u'*', directory->path());
    QTEST(lacksPlaylistFile(config), "lacks");
}

VANTIRO_TEST_GUILESS_MAIN(tst_PlaylistCopy)
#include "tst_PlaylistCopy.moc"
