#include "WindowFixture.h"

#include "model/SourceManager.h"
#include "player/VlcPlayer.h"
#include "support/PrivateProfile.h"
#include "ui/LoadingOverlay.h"
#include "ui/MainWindow.h"

#include <QComboBox>
#include <QListWidget>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

WindowFixture::WindowFixture()
{
    PrivateProfile::current().clear();
}

WindowFixture::~WindowFixture() = default;

void WindowFixture::store(const SourceConfig &source)
{
    SourceManager(nullptr).saveSource(source);
}

void WindowFixture::storeLastActive(const QString &name)
{
    SourceManager(nullptr).setLastActiveSourceName(name);
}

SourceConfig WindowFixture::stored(const QString &name)
{
    for (const SourceConfig &source : SourceManager(nullptr).sources()) {
        if (source.name == name) {
            return source;
        }
    }
    SourceConfig none;
    none.name = u"?"_s;
    return none;
}

QStringList WindowFixture::storedNames()
{
    QStringList names;
    for (const SourceConfig &source : SourceManager(nullptr).sources()) {
        names << source.name;
    }
    return names;
}

QString WindowFixture::storedLastActive()
{
    return SourceManager(nullptr).lastActiveSourceName();
}

MainWindow &WindowFixture::open()
{
    return show(std::make_unique<MainWindow>());
}

MainWindow &WindowFixture::open(const QString &subscriptionUrl)
{
    return show(std::make_unique<MainWindow>(subscriptionUrl));
}

MainWindow &WindowFixture::show(std::unique_ptr<MainWindow> made)
{
    mainWindow = std::move(made);
    mainWindow->show();
    if (!QTest::qWaitForWindowActive(mainWindow.get())) {
        qFatal("WindowFixture: the window does not become active");
    }
    return *mainWindow;
}

QWidget &WindowFixture::asWidget() const
{
    return *mainWindow;
}

QObject *WindowFixture::require(QObject *found, const QString &name)
{
    if (found == nullptr) {
        qFatal("WindowFixture: no widget \"%s\"", qUtf8Printable(name));
    }
    return found;
}

QPushButton &WindowFixture::button(const QString &text) const
{
    const auto buttons = mainWindow->findChildren<QPushButton *>();
    const auto found = std::find_if(buttons.begin(), buttons.end(), [&text](QPushButton *button) {
        return button->text().remove(u'&') == text;
    });
    return *static_cast<QPushButton *>(require(found != buttons.end() ? *found : nullptr, text));
}

VlcPlayer &WindowFixture::player() const
{
    auto *player = mainWindow->findChild<VlcPlayer *>();
    require(player, u"VlcPlayer"_s);
    return *player;
}

QTimer &WindowFixture::reconnectTimer() const
{
    return find<QTimer>(u"reconnectTimer"_s);
}

QTimer &WindowFixture::autoRefreshTimer() const
{
    return *static_cast<QTimer *>(
        require(mainWindow->findChild<QTimer *>(u"autoRefreshTimer"_s), u"autoRefreshTimer"_s));
}

LoadingOverlay &WindowFixture::overlay() const
{
    return find<LoadingOverlay>(u"loadingOverlay"_s);
}

bool WindowFixture::overlayShown() const
{
    return !overlay().isHidden();
}

QList<QNetworkReply *> WindowFixture::repliesUnderWay() const
{
    QList<QNetworkReply *> replies = mainWindow->findChildren<QNetworkReply *>();
    replies.removeIf([](const QNetworkReply *reply) { return reply->isFinished(); });
    return replies;
}

void WindowFixture::setReplyTimeout(int milliseconds) const
{
    for (auto *network : mainWindow->findChildren<QNetworkAccessManager *>()) {
        network->setTransferTimeout(milliseconds);
    }
}

QStringList rowTexts(const QTableWidget &table)
{
    QStringList texts;
    for (int row = 0; row < table.rowCount(); ++row) {
        texts << table.item(row, 0)->text();
    }
    return texts;
}

QStringList rowTexts(const QListWidget &list)
{
    QStringList texts;
    for (int row = 0; row < list.count(); ++row) {
        texts << list.item(row)->text();
    }
    if (!texts.isEmpty() && texts.first() == "All Categories"_L1) {
        texts.removeFirst();
    }
    return texts;
}

AccountCatalog shownCatalog(const WindowFixture &fixture)
{
    return {rowTexts(fixture.find<QListWidget>(u"liveCategoryList"_s)),
            rowTexts(fixture.find<QTableWidget>(u"liveTable"_s)),
            rowTexts(fixture.find<QListWidget>(u"movieCategoryList"_s)),
            rowTexts(fixture.find<QListWidget>(u"moviePosterList"_s)),
            rowTexts(fixture.find<QListWidget>(u"seriesCategoryList"_s)),
            rowTexts(fixture.find<QListWidget>(u"seriesPosterList"_s))};
}

QStringList shownChannels(const WindowFixture &fixture)
{
    return rowTexts(fixture.find<QTableWidget>(u"channelTable"_s));
}

QStringList sourceNames(const WindowFixture &fixture)
{
    const auto &combo = fixture.find<QComboBox>(u"sourceCombo"_s);
    QStringList names;
    for (int index = 0; index < combo.count(); ++index) {
        // Text and data are both the name.
        const QString data = combo.itemData(index).toString();
        names << (combo.itemText(index) == data ? data : u"text and data differ"_s);
    }
    return names;
}
