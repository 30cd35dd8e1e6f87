#pragma once

#include <QMenu>

/// What does not belong to one tab: the history, the backup, the account, the program.
class MoreMenu final : public QMenu
{
    Q_OBJECT

public:
    explicit MoreMenu(QWidget *parent);

    /// Whether there is a history to clear.
    void setHasHistory(bool hasHistory);
    /// Whether the active source is an account.
    void setHasAccount(bool hasAccount);

Q_SIGNALS:
    void clearHistoryRequested();
    void backUpRequested();
    void restoreRequested();
    void accountInformationRequested();
    void aboutRequested();

private:
    QAction *clearHistory;
    QAction *accountInformation;
};
