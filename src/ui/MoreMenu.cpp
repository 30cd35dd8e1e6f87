#include "ui/MoreMenu.h"

#include <QPalette>

MoreMenu::MoreMenu(QWidget *parent)
    : QMenu(parent)
    , openFile(addAction(tr("Open File..."), this, &MoreMenu::openFileRequested))
    , openLocation(addAction(tr("Open Location..."), this, &MoreMenu::openLocationRequested))
    , clearHistory(addAction(tr("Clear History..."), this, &MoreMenu::clearHistoryRequested))
{
    setAccessibleName(tr("More"));
    // The style draws a bright shadow below a disabled text; on dark ground it makes it hard to
    // read.
    QPalette colors = palette();
    colors.setColor(QPalette::Disabled, QPalette::Light, Qt::transparent);
    setPalette(colors);
    openFile->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    openLocation->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
    // Their keys work while the menu is closed.
    parent->addActions({openFile, openLocation});
    insertSeparator(clearHistory);
    addSeparator();
    addAction(tr("Back Up..."), this, &MoreMenu::backUpRequested);
    addAction(tr("Restore..."), this, &MoreMenu::restoreRequested);
    addSeparator();
    guide = addAction(tr("Programme Guide..."), this, &MoreMenu::guideRequested);
    sourceOptions = addAction(tr("Source Options..."), this, &MoreMenu::sourceOptionsRequested);
    accountInformation =
        addAction(tr("Account Information..."), this, &MoreMenu::accountInformationRequested);
    addAction(tr("About"), this, &MoreMenu::aboutRequested);
    setHasHistory(false);
    setHasSource(false);
    setHasAccount(false);
}

void MoreMenu::setHasHistory(bool hasHistory)
{
    clearHistory->setEnabled(hasHistory);
}

void MoreMenu::setHasSource(bool hasSource)
{
    guide->setEnabled(hasSource);
    sourceOptions->setEnabled(hasSource);
}

void MoreMenu::setHasAccount(bool hasAccount)
{
    accountInformation->setEnabled(hasAccount);
}
