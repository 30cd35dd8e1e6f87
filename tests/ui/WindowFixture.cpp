#include "WindowFixture.h"

#include "model/SourceManager.h"
#include "player/VlcPlayer.h"
#include "support/PrivateProfile.h"
#include "ui/LoadingOverlay.h"
#include "ui/MainWindow.h"

#include <QDateTime>
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

namespace {

SourceConfig source(qint32 type, const QString &name, const QString &url, qint64 ageSeconds)
{
    SourceConfig config = defaultSourceConfig();
    config.type = type;
    config.name = name;
    config.url = url;
    config.lastUpdated =
        ageSeconds == neverLoaded ? 0 : QDateTime::currentSecsSinceEpoch() - ageSeconds;
    return config;
}

} // namespace

SourceConfig playlistSource(const QString &name, const QString &url, qint64 ageSeconds)
{
    return source(SourceType::Playlist, name, url, ageSeconds);
}

SourceConfig accountSource(const QString &name, const QString &url, qint64 ageSeconds)
{
    SourceConfig config = source(SourceType::Xtream, name, url, ageSeconds);
    config.username = u"u"_s;
    config.password = u"p"_s;
    return config;
}

MediaItem entry(qint32 type, const QString &name, const QString &categoryId)
{
    MediaItem item;
    item.type = type;
    item.id = name;
    item.name = name;
    item.categoryId = categoryId;
    return item;
}

MediaItem channel(const QString &name, const QString &url, const QString &group)
{
    MediaItem item = entry(StreamKind::Live, name, group);
    item.id = url;
    item.streamUrl = url;
    return item;
}

HttpReply bodyReply(const QByteArray &body)
{
    HttpReply reply;
    reply.body = body;
    return reply;
}

HttpReply statusReply(int status)
{
    HttpReply reply;
    reply.status = status;
    return reply;
}

HttpReply heldReply(const QByteArray &body)
{
    HttpReply reply = bodyReply(body);
    reply.held = true;
    return reply;
}

QStringList rowTexts(const QTableWidget &table)
{
    QStringList texts;
    for (int row = 0; row < table.rowCount(); ++row) {
        texts << table.item(row, 0)->text();
    }
    return texts;
}
