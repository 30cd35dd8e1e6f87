#include "support/TestMain.h"
#include "ui/PlaylistCopy.h"
#include "ui/SourceDialog.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qUtf8Printable(path));
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "(no such file)"_ba;
}

QString playlistFolder()
{
    return PrivateProfile::current().appDataDir() + "/playlists"_L1;
}

/// What is stored for a playlist of that name and address. An error makes the address "!" and its
/// text.
SourceConfig playlistConfig(const QString &name, const QString &url)
{
    const SourceDialog dialog(nullptr, nullptr);
    dialog.findChild<QComboBox *>(u"typeCombo"_s)->setCurrentIndex(0);
    dialog.findChild<QLineEdit *>(u"m3uNameEdit"_s)->setText(name);
    dialog.findChild<QLineEdit *>(u"m3uUrlEdit"_s)->setText(url);
    SourceConfig config = dialog.config();
    QString error;
    if (!storePlaylistCopy(config, &error)) {
        config.url = u'!' + error;
    }
    return config;
}

} // namespace

/// The copies that the source form makes of local playlists.
class tst_SourceDialogFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void copyIsNamedAfterTheSource_data();
    void copyIsNamedAfterTheSource();
    void addressIsNoLocalFile_data();
    void addressIsNoLocalFile();
    void anEarlierCopyIsReplaced();
    void theStoredCopyIsKept();
    void theStoredCopyIsKeptThroughALink();
    void renamingCopiesToTheNewName();
    void aDirectoryIsNotCopied();
    void theFormAloneCopiesNothing();
    void renamingByLetterCaseKeepsTheContent();
    void copyIsReadableByItsOwnerOnly();
    void accountIsNotCopied();
    void aFileThatCannotBeReadIsTold();
    void aFolderThatCannotBeMadeIsTold();
    void aFailedCopyKeepsTheEarlierOne();

private:
    QString filePath(const QString &name) const { return directory->filePath(name); }

    std::unique_ptr<QTemporaryDir> directory;
};

void tst_SourceDialogFiles::init()
{
    PrivateProfile::current().clear();
    directory = std::make_unique<QTemporaryDir>();
}

void tst_SourceDialogFiles::copyIsNamedAfterTheSource_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *title, const QString &name, const QString &file,
                        const QString &expected) {
        QTest::newRow(title) << name << file << expected;
    };
    row("signs become underscores", u"My List!"_s, u"a.m3u8"_s, u"My_List_.m3u8"_s);
    row("letters, digits, underscore and hyphen stay", u"TV-2_b"_s, u"a.m3u"_s, u"TV-2_b.m3u"_s);
    row("one underscore per character", u"a../b"_s, u"a.m3u"_s, u"a___b.m3u"_s);
    row("beyond ASCII", u"Füße"_s, u"a.m3u"_s, u"F__e.m3u"_s);
    row("beyond the first plane, still one", u"TV😀"_s, u"a.m3u"_s, u"TV_.m3u"_s);
    row("only characters that are replaced", u"日本"_s, u"a.m3u"_s, u"__.m3u"_s);
    row("an empty name is the default name", {}, u"a.m3u"_s, u"M3U_Playlist.m3u"_s);
    row("no suffix", u"List"_s, u"channels"_s, u"List"_s);
    row("a dot at the end is no suffix", u"List"_s, u"channels."_s, u"List"_s);
    row("the last suffix", u"List"_s, u"a.b.c"_s, u"List.c"_s);
    row("the suffix as it is", u"List"_s, u"a.M3U8"_s, u"List.M3U8"_s);
    row("a hidden file's name is its suffix", u"List"_s, u".m3u"_s, u"List.m3u"_s);
    row("a path with blanks and umlauts", u"List"_s, u"meine größte Liste.m3u"_s, u"List.m3u"_s);
}

void tst_SourceDialogFiles::copyIsNamedAfterTheSource()
{
    QFETCH(QString, name);
    QFETCH(QString, file);
    QFETCH(QString, expected);
    writeFile(filePath(file), "#EXTM3U\n"_ba);

    const SourceConfig config = playlistConfig(name, u' ' + filePath(file) + u' ');
    QCOMPARE(config.url, playlistFolder() + u'/' + expected);
    QCOMPARE(contentOf(config.url), "#EXTM3U\n"_ba);
    QVERIFY(QFile::exists(filePath(file)));
}

void tst_SourceDialogFiles::addressIsNoLocalFile_data()
{
    QTest::addColumn<QString>("url");
    QTest::newRow("http") << u"http://127.0.0.1/list.m3u"_s;
    QTest::newRow("https") << u"https://127.0.0.1/list.m3u"_s;
    QTest::newRow("a scheme in capitals") << u"HTTP://127.0.0.1/list.m3u"_s;
    QTest::newRow("a scheme in mixed case") << u"HttpS://127.0.0.1/list.m3u"_s;
    QTest::newRow("another scheme") << u"ftp://127.0.0.1/list.m3u"_s;
    QTest::newRow("a file that is not there") << u"/nowhere/list.m3u"_s;
    QTest::newRow("nothing") << QString();
}

void tst_SourceDialogFiles::addressIsNoLocalFile()
{
    QFETCH(QString, url);
    // A folder of that name makes the address an existing path below the working folder.
    const QString before = QDir::currentPath();
    QDir::setCurrent(directory->path());
    QDir().mkpath(u"HTTP:/127.0.0.1"_s);
    writeFile(u"HTTP:/127.0.0.1/list.m3u"_s, "local"_ba);

    QCOMPARE(playlistConfig(u"List"_s, url).url, url);
    QVERIFY(!QFile::exists(playlistFolder()));
    QDir::setCurrent(before);
}

void tst_SourceDialogFiles::anEarlierCopyIsReplaced()
{
    QDir().mkpath(playlistFolder());
    writeFile(playlistFolder() + "/List.m3u"_L1, "the old and longer content"_ba);
    writeFile(filePath(u"a.m3u"_s), "new"_ba);
    QCOMPARE(contentOf(playlistConfig(u"List"_s, filePath(u"a.m3u"_s)).url), "new"_ba);
}

void tst_SourceDialogFiles::theStoredCopyIsKept()
{
    writeFile(filePath(u"a.m3u8"_s), "content"_ba);
    const SourceConfig first = playlistConfig(u"My List!"_s, filePath(u"a.m3u8"_s));

    const SourceDialog dialog(nullptr, &first);
    SourceConfig second = dialog.config();
    QString error;
    QVERIFY(storePlaylistCopy(second, &error));
    QCOMPARE(second.url, first.url);
    QCOMPARE(contentOf(second.url), "content"_ba);
}

void tst_SourceDialogFiles::theStoredCopyIsKeptThroughALink()
{
#ifdef Q_OS_WIN
    QSKIP("Qt makes shortcuts on Windows, which are no links");
#endif
    writeFile(filePath(u"a.m3u8"_s), "content"_ba);
    const SourceConfig first = playlistConfig(u"List"_s, filePath(u"a.m3u8"_s));
    QVERIFY(QFile::link(first.url, filePath(u"link.m3u8"_s)));

    const SourceConfig second = playlistConfig(u"List"_s, filePath(u"link.m3u8"_s));
    QCOMPARE(second.url, filePath(u"link.m3u8"_s));
    QCOMPARE(contentOf(first.url), "content"_ba);
}

void tst_SourceDialogFiles::renamingCopiesToTheNewName()
{
    writeFile(filePath(u"a.m3u8"_s), "content"_ba);
    const SourceConfig first = playlistConfig(u"Old"_s, filePath(u"a.m3u8"_s));
    const SourceConfig second = playlistConfig(u"New"_s, first.url);
    QCOMPARE(second.url, playlistFolder() + "/New.m3u8"_L1);
    QCOMPARE(contentOf(second.url), "content"_ba);
}

void tst_SourceDialogFiles::aDirectoryIsNotCopied()
{
    QCOMPARE(playlistConfig(u"List"_s, directory->path()).url, directory->path());
    QVERIFY(!QFile::exists(playlistFolder()));
}

void tst_SourceDialogFiles::theFormAloneCopiesNothing()
{
    const QString path = filePath(u"a.m3u"_s);
    writeFile(path, "content"_ba);
    const SourceDialog dialog(nullptr, nullptr);
    dialog.findChild<QComboBox *>(u"typeCombo"_s)->setCurrentIndex(0);
    dialog.findChild<QLineEdit *>(u"m3uUrlEdit"_s)->setText(path);
    QCOMPARE(dialog.config().url, path);
    QVERIFY(!QFile::exists(playlistFolder()));
}

void tst_SourceDialogFiles::renamingByLetterCaseKeepsTheContent()
{
    writeFile(filePath(u"a.m3u8"_s), "content"_ba);
    const SourceConfig first = playlistConfig(u"News"_s, filePath(u"a.m3u8"_s));
    const SourceConfig second = playlistConfig(u"NEWS"_s, first.url);
    QCOMPARE(contentOf(second.url), "content"_ba);
#ifdef Q_OS_WIN
    // One file under both names.
    QCOMPARE(second.url, first.url);
#else
    QCOMPARE(second.url, playlistFolder() + "/NEWS.m3u8"_L1);
#endif
}

void tst_SourceDialogFiles::copyIsReadableByItsOwnerOnly()
{
#ifdef Q_OS_WIN
    QSKIP("Windows gives files in a user's folders to that user");
#endif
    QDir().mkpath(playlistFolder());
    writeFile(playlistFolder() + "/List.m3u"_L1, "open to all"_ba);
    QFile::setPermissions(playlistFolder() + "/List.m3u"_L1,
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    writeFile(filePath(u"a.m3u"_s), "content"_ba);
    for (const QString &name : {u"List"_s, u"New"_s}) {
        const QString url = playlistConfig(name, filePath(u"a.m3u"_s)).url;
        QCOMPARE(contentOf(url), "content"_ba);
        QCOMPARE(QFile::permissions(url) & (QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner),
                 QFile::ReadOwner | QFile::WriteOwner);
        QVERIFY(
            !(QFile::permissions(url) & (QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                         QFile::ReadOther | QFile::WriteOther | QFile::ExeOther)));
    }
}

void tst_SourceDialogFiles::accountIsNotCopied()
{
    SourceConfig config = defaultSourceConfig();
    config.type = SourceType::Xtream;
    config.name = u"A"_s;
    config.url = filePath(u"a.m3u"_s);
    writeFile(config.url, "content"_ba);
    QString error;
    QVERIFY(storePlaylistCopy(config, &error));
    QCOMPARE(config.url, filePath(u"a.m3u"_s));
    QVERIFY(!QFile::exists(playlistFolder()));
}

void tst_SourceDialogFiles::aFileThatCannotBeReadIsTold()
{
    const QString path = filePath(u"a.m3u"_s);
    writeFile(path, "content"_ba);
    QFile::setPermissions(path, QFile::WriteOwner);
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        QSKIP("the superuser reads everything");
    }
    const QString url = playlistConfig(u"List"_s, path).url;
    QVERIFY2(url.startsWith(u"!The playlist \"%1\" could not be copied: "_s.arg(path)),
             qUtf8Printable(url));
    QVERIFY(!QFile::exists(playlistFolder() + "/List.m3u"_L1));
}

void tst_SourceDialogFiles::aFolderThatCannotBeMadeIsTold()
{
    const QString path = filePath(u"a.m3u"_s);
    writeFile(path, "content"_ba);
    QDir().mkpath(PrivateProfile::current().appDataDir());
    // A file stands where the folder belongs.
    writeFile(playlistFolder(), "in the way"_ba);
    const QString url = playlistConfig(u"List"_s, path).url;
    const QString beginning = u"!The playlist \"%1\" could not be copied: "_s.arg(path);
    QVERIFY2(url.startsWith(beginning) && url.size() > beginning.size(), qUtf8Printable(url));
    QCOMPARE(contentOf(path), "content"_ba);
}

void tst_SourceDialogFiles::aFailedCopyKeepsTheEarlierOne()
{
    const QString earlier = playlistFolder() + "/List.m3u"_L1;
    QDir().mkpath(playlistFolder());
    writeFile(earlier, "earlier"_ba);
#ifdef Q_OS_LINUX
    // Opens, but cannot be read: what it holds is the first page of this process's memory.
    const QString unreadable = filePath(u"mem.m3u"_s);
    QVERIFY(QFile::link(u"/proc/self/mem"_s, unreadable));
    QVERIFY(playlistConfig(u"List"_s, unreadable).url.startsWith(u'!'));
    QCOMPARE(contentOf(earlier), "earlier"_ba);
    QCOMPARE(QDir(playlistFolder()).entryList(QDir::Files), QStringList{u"List.m3u"_s});
#else
    QSKIP("no file that opens and cannot be read");
#endif
}

VANTIRO_TEST_MAIN(tst_SourceDialogFiles)
#include "tst_SourceDialogFiles.moc"
