#pragma once

#include <QDialog>

class WrappedLabel;
class XtreamClient;

class QFormLayout;
class QPushButton;
struct AccountInformation;
struct SourceConfig;

/// What an account's own summary tells. It is asked for when the dialog is made, and again by
/// "Retry"; a request under way ends with the dialog.
class AccountInformationDialog final : public QDialog
{
    Q_OBJECT

public:
    /// `source` holds the account: server, user name and password.
    AccountInformationDialog(const SourceConfig &source, QWidget *parent);

private:
    void ask();
    void fail(const QString &text);
    void showInformation(const AccountInformation &information);
    void addRow(const QString &name, const QString &value);

    XtreamClient *client;
    WrappedLabel *message;
    QFormLayout *form;
    QPushButton *retry;
};
