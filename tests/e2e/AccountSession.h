#pragma once

#include "fakeprovider/XtreamProvider.h"
#include "support/desktop/Accessible.h"
#include "support/desktop/RunningApp.h"

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// What a user does with an account, step by step. The program runs on the test's private profile
/// with network traces on; start() again, after close(), is a restart.
class AccountSession final
{
public:
    explicit AccountSession(const QString &program, const QProcessEnvironment &environment =
                                                        QProcessEnvironment::systemEnvironment());

    [[nodiscard]] bool start();
    [[nodiscard]] bool close();

    /// The "Add Source" dialog of the first start.
    desktop::Accessible addDialog() const;
    /// Types the provider's account into the dialog, with this password.
    [[nodiscard]] bool fillAccount(const XtreamProvider &provider, const QString &password) const;
    /// Presses "Test Connection" and waits for this result.
    [[nodiscard]] bool testsConnection(const QString &result) const;
    /// Chooses the subscription page of the dialog and types the key.
    [[nodiscard]] bool fillSubscription(const QString &key) const;
    [[nodiscard]] bool acceptDialog() const;

    /// Goes to a tab, sees its categories, opens all of them and sees the entries.
    [[nodiscard]] bool seesTab(const QString &tab, const QStringList &categories,
                               const QStringList &entries) const;
    /// Goes to the tab, which seesTab() left open, and plays an entry of it to a moving picture.
    [[nodiscard]] bool watches(const QString &tab, const QString &entry) const;
    /// Waits for a message box with this title and a text that begins so, and closes it.
    [[nodiscard]] bool seesFailure(const QString &title, const QString &beginning) const;
    /// Whether the row to seek in shows.
    bool hasSeekRow() const;
    void keepScreenshot(const QString &name) const;

    /// All that the program wrote to standard error, in all of its runs.
    QString traces() const { return earlierTraces + app.standardError(); }

    desktop::Accessible window; ///< the main window; valid after start()

private:
    QString earlierTraces;
    desktop::RunningApp app;
};

/// The ways in which a trace line could spell a secret.
QStringList spellingsOf(const QString &secret);
