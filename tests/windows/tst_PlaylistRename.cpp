#include "WindowFixture.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTableWidget>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

/// The stored copy of a local playlist in a file system that ignores case.
class tst_PlaylistRename : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNameInAnotherCaseKeepsTheCopy();
};

void tst_PlaylistRename::aNameInAnotherCaseKeepsTheCopy()
{
    const QByteArray playlist = "#EXTM3U\n#EXTINF:-1,News\nhttp://127.0.0.1:9/news.ts\n"_ba;
    const QTemporaryDir directory;
    const QString chosen = directory.filePath(u"chosen.m3u"_s);
    writeFile(chosen, playlist);

    WindowFixture fixture;
    fixture.dialogs.next([&](QDialog &dialog) {
        dialog.findChild<QComboBox *>(u"typeCombo"_s)->setCurrentIndex(0);
        dialog.findChild<QLineEdit *>(u"m3uNameEdit"_s)->setText(u"List"_s);
        dialog.findChild<QLineEdit *>(u"m3uUrlEdit"_s)->setText(chosen);
        DialogAnswers::click(dialog, u"OK"_s);
    });
    fixture.open();
    QTRY_COMPARE(WindowFixture::storedNames(), QStringList{u"List"_s});
    QVERIFY(WindowFixture::stored(u"List"_s).url != chosen);
    // Only the copy remains.
    QVERIFY(QFile::remove(chosen));

    fixture.dialogs.next([](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(u"m3uNameEdit"_s)->setText(u"LIST"_s);
        DialogAnswers::click(dialog, u"OK"_s);
    });
    fixture.button(u"Edit Source..."_s).click();
    QTRY_COMPARE(WindowFixture::storedNames(), QStringList{u"LIST"_s});
    QCOMPARE(readFile(WindowFixture::stored(u"LIST"_s).url), playlist);
    QTRY_COMPARE(rowTexts(fixture.find<QTableWidget>(u"channelTable"_s)), QStringList{u"News"_s});
    QCOMPARE(fixture.dialogs.seen().size(), 2);
}

VANTIRO_TEST_MAIN(tst_PlaylistRename)
#include "tst_PlaylistRename.moc"
