#pragma once

#include <QMenu>

/// What does not belong to one tab: files and addresses to open, the history, the backup, the
/// guide, the account, the program.
class MoreMenu final : public QMenu
{
    Q_OBJECT

public:
    explicit MoreMenu(QWidget *parent);

    /// Whether there is a history to clear.
    void setHasHistory(bool hasHistory);
    /// Whether there is an active source.
    void setHasSource(bool hasSource);
    /// Whether the active source is an account.
    void setHasAccount(bool hasAccount);

Q_SIGNALS:
    void openFileRequested();
    void openLocationRequested();
    void clearHistoryRequested();
    void backUpRequested();
    void restoreRequested();
    /// Of the active source.
    void guideRequested();
    /// Of the active source.
    void sourceOptionsRequested();
    void accountInformationRequested();
    void aboutRequested();

private:
    QAction *openFile;
    QAction *openLocation;
    QAction *clearHistory;
    QAction *guide;
    QAction *sourceOptions;
    QAction *accountInformation;
};
