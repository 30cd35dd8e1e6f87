#include "ui/MainWindow.h"

#include "library/Library.h"
#include "library/LibraryBackup.h"
#include "library/RestorePlan.h"
#include "model/SourceManager.h"
#include "player/VlcPlayer.h"
#include "providers/CatalogLoader.h"
#include "ui/AccountInformationDialog.h"
#include "ui/ClearHistoryDialog.h"
#include "ui/MoreMenu.h"
#include "ui/PlainMessageBox.h"
#include "ui/RestoreDialog.h"
#include "ui/SourceBar.h"
#include "ui/UndoBar.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDate>
#include <QFileDialog>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

constexpr auto backupSuffix = "json"_L1;

QString documentsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

/// Where a backup is written; empty when the user has cancelled.
QString askForBackupFile(QWidget *parent, const QString &title, const QString &filters)
{
    QFileDialog dialog(parent, title, documentsFolder(), filters);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(backupSuffix);
    dialog.selectFile("Vantiro Player "_L1 + QDate::currentDate().toString(Qt::ISODate) + u'.' +
                      backupSuffix);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace

void MainWindow::createMoreMenu()
{
    auto *menu = new MoreMenu(this);
    connect(menu, &MoreMenu::aboutToShow, this, [this, menu] {
        menu->setHasHistory(!library->isEmpty(LibraryPart::History) ||
                            !library->isEmpty(LibraryPart::Progress));
        menu->setHasSource(!currentSource.name.isEmpty());
        menu->setHasAccount(hasAccount());
    });
    connect(menu, &MoreMenu::openFileRequested, this, &MainWindow::openFile);
    connect(menu, &MoreMenu::openLocationRequested, this, &MainWindow::openLocation);
    connect(menu, &MoreMenu::clearHistoryRequested, this, &MainWindow::clearHistory);
    connect(menu, &MoreMenu::backUpRequested, this, &MainWindow::backUp);
    connect(menu, &MoreMenu::restoreRequested, this, &MainWindow::restoreBackup);
    connect(menu, &MoreMenu::guideRequested, this, &MainWindow::showGuideDialog);
    connect(menu, &MoreMenu::sourceOptionsRequested, this, &MainWindow::showSourceOptions);
    connect(menu, &MoreMenu::accountInformationRequested, this,
            &MainWindow::showAccountInformation);
    connect(menu, &MoreMenu::aboutRequested, this, &MainWindow::showAbout);
    sourceBar->setMoreMenu(menu);
}

void MainWindow::clearHistory()
{
    ClearHistoryDialog dialog(library->rows(), this);
    if (dialog.exec() == QDialog::Accepted) {
        offerUndo(tr("History cleared"), library->clear(dialog.parts()));
    }
}

void MainWindow::backUp()
{
    const QString title = tr("Back Up");
    // Who uses no guide reads nothing of it.
    const bool hasGuides = !library->isEmpty(LibraryPart::GuideSettings) ||
                           !library->isEmpty(LibraryPart::GuideCorrections) ||
                           !library->isEmpty(LibraryPart::Reminders);
    const QString text = hasGuides ? tr("The backup holds your sources, favorites, history, "
                                        "positions, hidden categories, the settings of programme "
                                        "guides and reminders.")
                                   : tr("The backup holds your sources, favorites, history, "
                                        "positions and hidden categories.");
    PlainMessageBox box(QMessageBox::NoIcon, title, text, QMessageBox::Save | QMessageBox::Cancel,
                        this);
    box.setInformativeText(tr("Whoever has the file can read the passwords and keys in it."));
    auto *withCredentials = new QCheckBox(tr("Include passwords and keys"));
    box.setCheckBox(withCredentials);
    box.setDefaultButton(QMessageBox::Save);
    if (box.exec() != QMessageBox::Save) {
        return;
    }
    const QString path = askForBackupFile(this, title, tr("Backups (*.json);;All Files (*)"));
    QString error;
    if (!path.isEmpty() && !LibraryBackup::save(path, {sourceManager->sources(), library->rows()},
                                                withCredentials->isChecked(), error)) {
        PlainMessageBox::warn(this, title, error);
    }
}

void MainWindow::restoreBackup()
{
    const QString title = tr("Restore");
    const QString path = QFileDialog::getOpenFileName(this, title, documentsFolder(),
                                                      tr("Backups (*.json);;All Files (*)"));
    if (path.isEmpty()) {
        return;
    }
    QString error;
    const auto backup = LibraryBackup::load(path, error);
    if (!backup) {
        PlainMessageBox::warn(this, title, error);
        return;
    }
    RestoreDialog dialog({sourceManager->sources(), library->rows()}, *backup, this);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    const auto activeBefore = storedSource(currentSource.name);
    // Planned again: playing goes on while the dialog is open.
    if (restore(planRestore({sourceManager->sources(), library->rows()}, *backup, dialog.mode()))) {
        undoBar->dismiss();
        showRestoredSources(activeBefore);
    } else {
        PlainMessageBox::warn(this, title,
                              tr("The backup could not be restored. Everything is as it was."));
    }
}

/// Does all of the plan or nothing; false when it cannot be written.
bool MainWindow::restore(const RestorePlan &plan)
{
    const LibraryChange inverse = LibraryState(library->rows()).apply(plan.change);
    if (!inverse.isEmpty() && !library->applyNow(plan.change)) {
        return false;
    }
    if (plan.sources == sourceManager->sources()) {
        return true;
    }
    const QList<SourceConfig> before = sourceManager->sources();
    if (!sourceManager->setSources(plan.sources)) {
        library->apply(inverse);
        return false;
    }
    for (const SourceConfig &source : before) {
        if (!plan.sources.contains(source)) {
            // What is still under way for it came from the source as it was.
            catalogLoader->forget(source.name);
        }
        if (!storedSource(source.name)) {
            moveWhatPlays(source.name, {});
        }
    }
    return true;
}

/// Brings the source bar in line with the stored sources. The active source is loaded again only
/// when it changed; another one takes its place when it is gone.
void MainWindow::showRestoredSources(const std::optional<SourceConfig> &activeBefore)
{
    const QString activeName = currentSource.name;
    fillSourceBar();
    const int index = sourceBar->indexOf(activeName);
    if (index > 0) {
        const QSignalBlocker blocker(sourceBar);
        sourceBar->setCurrentIndex(index);
    }
    if (index < 0 || storedSource(activeName) != activeBefore) {
        showRemainingSources();
    }
}

/// Of a subscription, once its key was exchanged.
bool MainWindow::hasAccount() const
{
    return SourceType::isAccount(currentSource.type) && !currentSource.url.isEmpty();
}

void MainWindow::showAccountInformation()
{
    AccountInformationDialog(currentSource, this).exec();
}

void MainWindow::showAbout()
{
    const QString text =
        tr("Vantiro Player %1\nA player for internet television.\nCopyright 2026 Vantiro. All "
           "rights reserved.\n\nWith Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 or later) and RapidJSON "
           "(MIT). The texts of these licences come with the package.")
            .arg(QCoreApplication::applicationVersion(), QString::fromLatin1(qVersion()),
                 VlcPlayer::libVlcVersion());
    PlainMessageBox box(QMessageBox::NoIcon, tr("About"), text, QMessageBox::Ok, this);
    box.setIconPixmap(windowIcon().pixmap(64));
    box.exec();
}
