#include "ui/MainWindow.h"

#include "library/Library.h"
#include "model/SourceManager.h"
#include "providers/CatalogLoader.h"
#include "ui/PlainMessageBox.h"
#include "ui/PlaybackSession.h"
#include "ui/PlaylistCopy.h"
#include "ui/SourceBar.h"
#include "ui/SourceDialog.h"
#include "ui/SourceGuide.h"
#include "ui/SourceOptionsDialog.h"

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
    addSourceBy(dialog);
}

void MainWindow::addSourceBy(SourceDialog &dialog)
{
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
    sourceBar->append(config.name);
}

void MainWindow::editSource()
{
    const int index = sourceBar->currentIndex();
    if (index < 0) {
        return;
    }
    const auto existing = storedSource(sourceBar->nameAt(index));
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

void MainWindow::showSourceOptions()
{
    const auto existing = storedSource(currentSource.name);
    if (!existing) {
        return;
    }
    SourceOptionsDialog dialog(*existing, this);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    // The catalog is fetched again: without the user agent its server may have refused it.
    if (accepted && dialog.source() != *existing && existing->name == currentSource.name) {
        replaceSourceAt(sourceBar->currentIndex(), existing->name, dialog.source());
    }
}

void MainWindow::deleteSource(const QString &name)
{
    while (storedSource(name)) {
        sourceManager->removeSource(name);
    }
    library->forgetSource(name);
    moveWhatPlays(name, {});
    // What is still under way for it must not store it again.
    catalogLoader->forget(name);
    sourceBar->remove(name);
    showRemainingSources();
}

void MainWindow::showRemainingSources()
{
    if (!sourceBar->isEmpty()) {
        onSourceSelected(sourceBar->currentIndex());
    } else {
        forgetLastSource();
        QMetaObject::invokeMethod(this, &MainWindow::addSource, Qt::QueuedConnection);
    }
}

void MainWindow::forgetLastSource()
{
    catalogLoader->reset();
    currentSource = defaultSourceConfig();
    session->forget();
    playingList->clear();
    showLibraryOf({});
    sourceGuide->setSource(currentSource);
    emptyBrowseTabs();
}

void MainWindow::replaceSourceAt(int index, const QString &oldName, const SourceConfig &edited)
{
    // What is still under way for it came from the source as it was.
    catalogLoader->forget(oldName);
    if (edited.name != oldName) {
        sourceManager->removeSource(oldName);
        library->renameSource(oldName, edited.name);
        moveWhatPlays(oldName, edited.name);
    }
    sourceManager->saveSource(edited);
    const bool current = index == sourceBar->currentIndex();
    sourceBar->rename(index, edited.name);
    if (edited.name != oldName) {
        sourceBar->remove(oldName);
    }
    if (current) {
        loadSource(edited, true);
    }
}
