#pragma once

#include "DialogAnswers.h"
#include "providers/SampleCatalogs.h"
#include "support/HttpReplies.h"

#include <QDialog>
#include <QPushButton>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

class LoadingOverlay;
class MainWindow;
class QListWidget;
class QNetworkReply;
class QTableWidget;
class QTimer;
class VlcPlayer;

/// One test's main window over an empty profile. Sources and cached catalogs are put in place
/// first, then open() shows the window; its dialogs are answered through `dialogs`.
class WindowFixture
{
public:
    WindowFixture();
    ~WindowFixture();
    WindowFixture(const WindowFixture &) = delete;
    WindowFixture &operator=(const WindowFixture &) = delete;

    /// Stores a source as an earlier run would have; the window reads it when it opens.
    static void store(const SourceConfig &source);
    static void storeLastActive(const QString &name);
    /// The stored record of that name; one with the name "?" when there is none.
    static SourceConfig stored(const QString &name);
    static QStringList storedNames();
    static QString storedLastActive();

    /// Makes and shows the window, and waits until it is active.
    MainWindow &open();
    /// The same, with a subscription service at this base address.
    MainWindow &open(const QString &subscriptionUrl);
    MainWindow &window() const { return *mainWindow; }

    /// The widget of that object name; ends the program when there is none of that type.
    template <typename Widget>
    Widget &find(const QString &name) const
    {
        return *static_cast<Widget *>(require(asWidget().findChild<Widget *>(name), name));
    }
    /// The button of that text, key marks ignored.
    QPushButton &button(const QString &text) const;
    VlcPlayer &player() const;
    QTimer &reconnectTimer() const;
    QTimer &autoRefreshTimer() const;
    LoadingOverlay &overlay() const;
    bool overlayShown() const;
    /// The window's requests that are not answered yet, those of its clients included.
    QList<QNetworkReply *> repliesUnderWay() const;
    /// Lets requests that the window and its clients send from now on wait that long for progress.
    void setReplyTimeout(int milliseconds) const;

    DialogAnswers dialogs;

private:
    MainWindow &show(std::unique_ptr<MainWindow> made);
    QWidget &asWidget() const;
    static QObject *require(QObject *found, const QString &name);

    std::unique_ptr<MainWindow> mainWindow;
};

/// The texts of a table's first column, from top to bottom.
QStringList rowTexts(const QTableWidget &table);
/// The names in a category list, without "All Categories", or in a poster grid.
QStringList rowTexts(const QListWidget &list);

/// What the three tabs of an account show now.
AccountCatalog shownCatalog(const WindowFixture &fixture);
/// What the Channels tab shows now.
QStringList shownChannels(const WindowFixture &fixture);
/// The texts of the source selector.
QStringList sourceNames(const WindowFixture &fixture);
