#pragma once

#include "DialogAnswers.h"
#include "providers/SampleCatalogs.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals; // for tests only

class LoadingOverlay;
class QNetworkReply;
class VlcPlayer;

/// One test's main window over an empty profile. Sources and cached catalogs are put in place
/// first, then open() shows the window; its dialogs are answered through `dialogs`. A test class
/// that derives from it calls reset() in its init().
class WindowFixture
{
public:
    WindowFixture();
    ~WindowFixture();
    WindowFixture(const WindowFixture &) = delete;
    WindowFixture &operator=(const WindowFixture &) = delete;

    /// Closes the window, empties the profile and forgets the dialogs.
    void reset();

    /// Stores a source as an earlier run would have; the window reads it when it opens.
    static void store(const SourceConfig &source);
    static void storeLastActive(const QString &name);
    /// The stored record of that name; one with the name "?" when there is none.
    static SourceConfig stored(const QString &name);
    static QStringList storedNames();
    static QString storedLastActive();

    /// Makes and shows the window, and waits until it is active. `subscriptionUrl` is the base
    /// address of the subscription service, in place of the configured one.
    MainWindow &open(const QString &subscriptionUrl = {});
    MainWindow &window() const { return *mainWindow; }

    /// The widget of that object name; ends the program when there is none of that type.
    template <typename Widget>
    Widget &find(const QString &name) const
    {
        return *static_cast<Widget *>(require(mainWindow->findChild<Widget *>(name), name));
    }
    /// The button of that text, key marks ignored.
    QAbstractButton &button(const QString &text) const;
    QComboBox &combo() const { return find<QComboBox>(u"sourceCombo"_s); }
    QTabWidget &tabs() const { return find<QTabWidget>(u"tabs"_s); }
    VlcPlayer &player() const;
    QTimer &reconnectTimer() const { return find<QTimer>(u"reconnectTimer"_s); }
    QTimer &autoRefreshTimer() const { return find<QTimer>(u"autoRefreshTimer"_s); }
    LoadingOverlay &overlay() const;
    bool overlayShown() const;
    bool shows(const QString &widget) const { return find<QWidget>(widget).isVisible(); }
    /// The texts of the source selector.
    QStringList sourceNames() const;
    /// The texts of the view of that object name.
    QStringList rows(const QString &view) const;
    /// What the three tabs of an account show now.
    AccountCatalog shownCatalog() const;
    /// What the Channels tab shows now.
    QStringList shownChannels() const { return rows(u"channelTable"_s); }
    /// What the line above the controls says.
    QString nowPlaying() const { return find<QLabel>(u"mutedLabel"_s).text(); }

    /// The window's requests that are not answered yet, those of its clients included.
    QList<QNetworkReply *> repliesUnderWay() const;

    DialogAnswers dialogs;

private:
    static QObject *require(QObject *found, const QString &name);

    std::unique_ptr<MainWindow> mainWindow;
};

/// The texts of a view's first column, from top to bottom, without "All Categories".
QStringList rowTexts(const QAbstractItemView &view);
