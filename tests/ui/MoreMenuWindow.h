#pragma once

#include "WindowFixture.h"
#include "library/Library.h"
#include "library/LibraryBackup.h"
#include "library/RestorePlan.h"

#include <QCheckBox>
#include <QFile>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QRadioButton>

/// What the tests of the menu "More" share: a main window over playlists of a server, the lines of
/// the menu, and the dialogs of a backup. A test class that derives from it calls reset() in its
/// init().
class MoreMenuWindow : public WindowFixture
{
protected:
    static QString backupFile() { return PrivateProfile::current().root() + u"/backup.json"_s; }
    static QString libraryFile()
    {
        return PrivateProfile::current().appDataDir() + u"/library.sqlite"_s;
    }
    static LibraryEntry film(const QString &source, const QString &id)
    {
        return {source, EntryKind::Movie, id, u"Film "_s + id, u"1"_s};
    }
    static Progress position(const QString &source, const QString &id)
    {
        Progress at = progressOf(film(source, id));
        at.positionMs = 60'000;
        at.durationMs = 600'000;
        return at;
    }

    void reset()
    {
        WindowFixture::reset();
        QFile::remove(backupFile()); // which another backup would ask about
        server = std::make_unique<HttpServer>();
        for (const QString &name : {u"a"_s, u"b"_s, u"c"_s}) {
            server->on(u'/' + name, bodyReply(oneChannel(name)));
        }
    }
    /// Opens the window with playlists of these names, whose channel is named like them.
    void openWith(const QStringList &names)
    {
        for (const QString &name : names) {
            store(served(name, u'/' + name));
        }
        open();
        [&] { QTRY_COMPARE(shownChannels(), QStringList{names.at(0)}); }();
    }
    SourceConfig served(const QString &name, const QString &path) const
    {
        return playlistSource(name, server->url(path), neverLoaded);
    }
    Library &library() const { return *window().findChild<Library *>(); }

    /// Chooses a line of the menu by the mouse, and waits until its dialogs were answered.
    void choose(const QString &text)
    {
        bool found = false;
        dialogs.nextMenu([&text, &found](QMenu &menu) {
            const QList<QAction *> actions = menu.actions();
            for (QAction *action : actions) {
                if (action->text() == text) {
                    found = true;
                    QTest::mouseClick(&menu, Qt::LeftButton, {},
                                      menu.actionGeometry(action).center());
                }
            }
        });
        button(u"More"_s).click();
        QTRY_COMPARE(dialogs.waiting(), 0);
        QVERIFY(found);
        QTRY_VERIFY(QApplication::activePopupWidget() == nullptr);
        QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    }
    /// Whether the menu offers a line.
    bool offers(const QString &text)
    {
        bool offered = false;
        dialogs.nextMenu([&text, &offered](QMenu &menu) {
            const QList<QAction *> actions = menu.actions();
            for (const QAction *action : actions) {
                offered = offered || (action->text() == text && action->isEnabled());
            }
        });
        button(u"More"_s).click();
        [this] { QTRY_COMPARE(dialogs.waiting(), 0); }();
        return offered;
    }

    void nextChoosesFile(const QString &path)
    {
        dialogs.next([path](QDialog &dialog) {
            auto &chooser = dynamic_cast<QFileDialog &>(dialog);
            QCOMPARE(chooser.nameFilters(),
                     (QStringList{u"Backups (*.json)"_s, u"All Files (*)"_s}));
            chooser.selectFile(path);
            dialog.accept();
        });
    }
    void nextBacksUp(bool withCredentials)
    {
        dialogs.next([withCredentials](QDialog &dialog) {
            auto &box = dynamic_cast<QMessageBox &>(dialog);
            QVERIFY(!box.checkBox()->isChecked());
            box.checkBox()->setChecked(withCredentials);
            QVERIFY(DialogAnswers::click(dialog, u"Save"_s));
        });
        nextChoosesFile(backupFile());
    }
    void nextRestores(RestoreMode mode)
    {
        nextChoosesFile(backupFile());
        dialogs.next([mode](QDialog &dialog) {
            if (mode == RestoreMode::Replace) {
                dialog.findChild<QRadioButton *>(u"replaceButton"_s)->click();
            }
            QVERIFY(DialogAnswers::click(dialog, u"Restore"_s));
        });
    }
    static void writeBackup(const LibraryBackup::Content &content)
    {
        QString error;
        QVERIFY2(LibraryBackup::save(backupFile(), content, true, error), qPrintable(error));
    }

    std::unique_ptr<HttpServer> server;
};
