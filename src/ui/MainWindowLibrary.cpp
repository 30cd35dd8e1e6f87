#include "library/Library.h"
#include "ui/MainWindow.h"
#include "ui/PlainMessageBox.h"
#include "ui/UndoBar.h"

#include <QTabWidget>

void MainWindow::createLibrary()
{
    library = new Library(this);
    connect(
        library, &Library::problem, this,
        [this](const QString &text) {
            PlainMessageBox::warn(this, tr("Favorites and Positions"), text);
        },
        Qt::QueuedConnection);
    undoBar = new UndoBar(tabs);
}

void MainWindow::offerUndo(const QString &text, const LibraryChange &inverse)
{
    if (!inverse.isEmpty()) {
        undoBar->offer(text, [this, inverse] { library->apply(inverse); });
    }
}
