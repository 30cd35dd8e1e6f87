#include "ui/MainWindow.h"

#include "model/SourceManager.h"
#include "providers/CatalogLoader.h"
#include "ui/PlainMessageBox.h"
#include "ui/PlaybackSession.h"
#include "ui/PlaylistCopy.h"
#include "ui/SourceDialog.h"

#include <QComboBox>
#include <QSignalBlocker>

bool MainWindow::storeCopy(SourceConfig &config, const QString &title)
{
    QString error;
    if (storePlaylistCopy(config, &error)) {
        return true;
    }
    PlainMessageBox::warn(this, title, error);
    return false;
}

bool MainWindow::checkDialogResult(const SourceConfig &config, const QString &title)
{
    const bool subscription = config.type == SourceType::Zevrino;
    if (!(subscription ? config.subscriptionKey : config.url).isEmpty()) {
        return true;
    }
    PlainMessageBox::warn(this, title,
                          subscription ? tr("Please provide a valid subscription key.")
                                       : tr("Please provide a valid URL/path."));
    return false;
}

void MainWindow::addSource()
{
    SourceDialog dialog(this, nullptr);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    SourceConfig config = dialog.config();
    const QString title = dialog.windowTitle();
    if (!checkDialogResult(config, title) || !storeCopy(config, title)) {
        return;
    }
    catalogLoader->forget(config.name);
    sourceManager->saveSource(config);
    sourceCombo->addItem(config.name, config.name);
    sourceCombo->setCurrentIndex(sourceCombo->count() - 1);
}

void MainWindow::editSource()
{
    const int index = sourceCombo->currentIndex();
    if (index < 0) {
        return;
    }
    const auto existing = storedSource(sourceCombo->itemData(index).toString());
    if (!existing) {
        return;
    }
    SourceDialog dialog(this, &*existing);
    if (dialog.exec() != QDialog::Accepted) {
        if (dialog.deleteRequested) {
            deleteSource(existing->name);
        }
        return;
    }
    SourceConfig edited = dialog.config();
    const QString title = dialog.windowTitle();
    if (checkDialogResult(edited, title) && storeCopy(edited, title)) {
        replaceSourceAt(index, existing->name, edited);
    }
}

void MainWindow::deleteSource(const QString &name)
{
    while (storedSource(name)) {
        sourceManager->removeSource(name);
    }
    // What is still under way for it must not store it again.
    catalogLoader->forget(name);
    removeRowsOf(name);
    if (sourceCombo->count() > 0) {
        onSourceSelected(sourceCombo->currentIndex());
    } else {
        forgetLastSource();
        QMetaObject::invokeMethod(this, &MainWindow::addSource, Qt::QueuedConnection);
    }
}

void MainWindow::removeRowsOf(const QString &name)
{
    // The removal alone would select the next source, and loading it is the caller's.
    const QSignalBlocker blocker(sourceCombo);
    for (int index = sourceCombo->count() - 1; index >= 0; --index) {
        if (sourceCombo->itemData(index).toString() == name) {
            sourceCombo->removeItem(index);
        }
    }
}

void MainWindow::forgetLastSource()
{
    catalogLoader->reset();
    currentSource = defaultSourceConfig();
    session->stop();
    emptyBrowseTabs();
}

void MainWindow::replaceSourceAt(int index, const QString &oldName, const SourceConfig &edited)
{
    // What is still under way for it came from the source as it was.
    catalogLoader->forget(oldName);
    if (edited.name != oldName) {
        sourceManager->removeSource(oldName);
    }
    sourceManager->saveSource(edited);
    const bool current = index == sourceCombo->currentIndex();
    sourceCombo->setItemText(index, edited.name);
    sourceCombo->setItemData(index, edited.name);
    if (edited.name != oldName) {
        removeRowsOf(oldName);
    }
    if (current) {
        loadSource(edited, true);
    }
}
