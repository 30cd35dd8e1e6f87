#include "WindowFixture.h"

#include "model/SourceManager.h"
#include "player/VlcPlayer.h"
#include "ui/LoadingOverlay.h"

#include <QNetworkReply>

WindowFixture::WindowFixture()
{
    reset();
}

WindowFixture::~WindowFixture() = default;

void WindowFixture::reset()
{
    mainWindow.reset();
    PrivateProfile::current().clear();
    dialogs.clear();
}

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

MainWindow &WindowFixture::open(const QString &subscriptionUrl)
{
    mainWindow = subscriptionUrl.isEmpty() ? std::make_unique<MainWindow>()
                                           : std::make_unique<MainWindow>(subscriptionUrl);
    mainWindow->show();
    if (!QTest::qWaitForWindowActive(mainWindow.get())) {
        qFatal("WindowFixture: the window does not become active");
    }
    return *mainWindow;
}

QObject *WindowFixture::require(QObject *found, const QString &name)
{
    if (found == nullptr) {
        qFatal("WindowFixture: no widget \"%s\"", qUtf8Printable(name));
    }
    return found;
}

QAbstractButton &WindowFixture::button(const QString &text) const
{
    return *static_cast<QAbstractButton *>(require(buttonOf(*mainWindow, text), text));
}

VlcPlayer &WindowFixture::player() const
{
    return *mainWindow->findChild<VlcPlayer *>();
}

LoadingOverlay &WindowFixture::overlay() const
{
    return find<LoadingOverlay>(u"loadingOverlay"_s);
}

bool WindowFixture::overlayShown() const
{
    return !overlay().isHidden();
}

QStringList WindowFixture::sourceNames() const
{
    QStringList names;
    for (int index = 0; index < combo().count(); ++index) {
        // Text and data are both the name.
        const QString data = combo().itemData(index).toString();
        names << (combo().itemText(index) == data ? data : u"text and data differ"_s);
    }
    return names;
}

QStringList WindowFixture::rows(const QString &view) const
{
    return rowTexts(find<QAbstractItemView>(view));
}

AccountCatalog WindowFixture::shownCatalog() const
{
    return {rows(u"liveCategoryList"_s),   rows(u"liveTable"_s),
            rows(u"movieCategoryList"_s),  rows(u"moviePosterList"_s),
            rows(u"seriesCategoryList"_s), rows(u"seriesPosterList"_s)};
}

QList<QNetworkReply *> WindowFixture::repliesUnderWay() const
{
    QList<QNetworkReply *> replies = mainWindow->findChildren<QNetworkReply *>();
    replies.removeIf([](const QNetworkReply *reply) { return reply->isFinished(); });
    return replies;
}

QStringList rowTexts(const QAbstractItemView &view)
{
    const QAbstractItemModel &model = *view.model();
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row) {
        texts << model.index(row, 0).data().toString();
    }
    if (texts.value(0) == "All Categories"_L1) {
        texts.removeFirst();
    }
    return texts;
}
