// The program on Windows, driven as a person does: its windows are found and its input is given
// through Windows itself, its pixels are read from the screen. The layout is the window's own, at
// the size with which it opens. The program is as the packages install it: it finds no other
// plugins of Qt than theirs.

#include "e2e/StoredSources.h"
#include "fakeprovider/PosterArt.h"
#include "fakeprovider/Streams.h"
#include "model/CatalogCache.h"
#include "model/SourceManager.h"
#include "support/TestMain.h"
#include "support/desktop/Screen.h"
#include "windows/NativeWindow.h"

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;
using NativeKeyboard::Key;

namespace {

constexpr int startMs = 60000;

const QString mainTitle = u"Vantiro Player"_s;
constexpr QSize minimumPicture(400, 200);

// Where the window has what is clicked, from its top left corner.
constexpr QPoint moviesTab(133, 64);
constexpr QPoint searchAll(180, 109);
constexpr QPoint firstCategory(73, 176);
constexpr QPoint firstResult(73, 176);
constexpr QPoint firstPoster(100, 250);

QByteArray playlist(const HttpServer &server)
{
    QByteArray text = "#EXTM3U\n";
    for (const QString &name : {u"Alpha"_s, u"Beta"_s, u"Gamma"_s}) {
        text += "#EXTINF:-1 group-title=\"Test\"," + name.toUtf8() + '\n' +
                server.url(u"/%1.ts"_s.arg(name.toLower())).toUtf8() + '\n';
    }
    return text;
}

void keepScreenshot(const QString &name)
{
    desktop::Screen::save(desktop::Screen::grab(), name);
}

/// How many of the program's files hold these bytes.
int filesWith(const QByteArray &bytes)
{
    int count = 0;
    QDirIterator files(PrivateProfile::current().appDataDir(), QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (file.open(QIODevice::ReadOnly) && file.readAll() == bytes)
            ++count;
    }
    return count;
}

QByteArray asWebp(const QByteArray &picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    constexpr int lossless = 100;
    QImage::fromData(picture).save(&buffer, "WEBP", lossless);
    return bytes;
}

bool screenShows(const QColor &color)
{
    constexpr int wanted = 1000;
    const QImage image = desktop::Screen::grab();
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        pixels += static_cast<int>(std::count(line, line + image.width(), color.rgb()));
    }
    return pixels >= wanted;
}

} // namespace

class tst_Program : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void asksForASourceOnAnEmptyProfile();
    void addsAPlaylistAndPlaysFromIt();
    void showsPostersAndPlaysAFilm();

private:
    bool start();
    bool closeWindow();
    void checkStoredPlaylist(const QString &url);
    bool clickUntil(const QList<QPoint> &places, const std::function<bool()> &happened);

    QProcess player;
    std::optional<NativeWindow> window;
};

void tst_Program::init()
{
    PrivateProfile::current().clear();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"VANTIRO_NET_DEBUG"_s, u"1"_s);
    environment.remove(u"QT_PLUGIN_PATH"_s);
    player.setProcessEnvironment(environment);
    player.setProcessChannelMode(QProcess::ForwardedChannels);
}

void tst_Program::cleanup()
{
    if (QTest::currentTestFailed())
        keepScreenshot(u"failed-"_s + QString::fromLatin1(QTest::currentTestFunction()));
    if (player.state() != QProcess::NotRunning) {
        player.kill();
        player.waitForFinished();
    }
}

bool tst_Program::start()
{
    player.start(QStringLiteral(VANTIRO_PLAYER), {});
    if (!player.waitForStarted())
        return false;
    window = NativeWindow::waitFor(player.processId(), mainTitle, startMs);
    return window.has_value();
}

bool tst_Program::closeWindow()
{
    window->close();
    return player.waitForFinished() && player.exitStatus() == QProcess::NormalExit &&
           player.exitCode() == 0;
}

/// The registry and the cache file are where a Windows user's lie.
void tst_Program::checkStoredPlaylist(const QString &url)
{
    const auto sources = [] { return SourceManager(nullptr).sources(); };
    QTRY_COMPARE_WITH_TIMEOUT(sources().size(), 1, startMs);
    QCOMPARE(sources().constFirst().name, u"Home"_s);
    QCOMPARE(sources().constFirst().url, url);
    const QSettings registry(u"HKEY_CURRENT_USER\\Software\\Vantiro\\Player"_s,
                             QSettings::NativeFormat);
    QVERIFY(!registry.allKeys().isEmpty());

    const QString folder = PrivateProfile::current().appDataDir();
    QVERIFY2(folder.endsWith("/AppData/Roaming/Vantiro/Vantiro Player"_L1), qPrintable(folder));
    CatalogCache::Section section;
    QTRY_VERIFY_WITH_TIMEOUT(CatalogCache::load(sources().constFirst().name, u"channel"_s, section),
                             startMs);
    QCOMPARE(section.items.size(), 3);
}

/// A click may come before what it is meant for is on the screen, so all are repeated until they
/// show an effect.
bool tst_Program::clickUntil(const QList<QPoint> &places, const std::function<bool()> &happened)
{
    constexpr int attempts = 20;
    constexpr int patienceMs = 1000;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        for (const QPoint &place : places) {
            window->click(place);
            if (QTest::qWaitFor(happened, patienceMs))
                return true;
        }
    }
    return false;
}

void tst_Program::asksForASourceOnAnEmptyProfile()
{
    QVERIFY(start());
    const auto dialog = NativeWindow::waitFor(player.processId(), u"Add Source"_s);
    QVERIFY(dialog);
    NativeKeyboard::press(Key::Escape);
    QVERIFY(dialog->waitUntilGone());
    QVERIFY(window->isVisible());
    QVERIFY(closeWindow());
}

void tst_Program::addsAPlaylistAndPlaysFromIt()
{
    HttpServer server;
    HttpReply list;
    list.body = playlist(server);
    server.on(u"/list.m3u"_s, list);
    server.on(u"/beta.ts"_s, liveTs());

    QVERIFY(start());
    const auto dialog = NativeWindow::waitFor(player.processId(), u"Add Source"_s);
    QVERIFY(dialog);
    NativeKeyboard::type(u"M"_s); // chooses the type, which has the focus
    NativeKeyboard::press(Key::Tab);
    NativeKeyboard::press(Key::SelectAll);
    NativeKeyboard::type(u"Home"_s);
    NativeKeyboard::press(Key::Tab);
    NativeKeyboard::type(server.url(u"/list.m3u"_s));
    NativeKeyboard::press(Key::Return);
    QVERIFY(dialog->waitUntilGone());

    checkStoredPlaylist(server.url(u"/list.m3u"_s));

    window->click(searchAll);
    NativeKeyboard::type(u"beta"_s);
    keepScreenshot(u"search"_s);
    QVERIFY(
        clickUntil({firstResult}, [&server] { return server.requestCount(u"/beta.ts"_s) > 0; }));
    QCOMPARE(server.requestCount(u"/alpha.ts"_s), 0);
    QVERIFY(desktop::Screen::waitUntilMoving(window->childRect(minimumPicture)));
    keepScreenshot(u"channel"_s);
    QVERIFY(closeWindow());
}

void tst_Program::showsPostersAndPlaysAFilm()
{
    XtreamProvider provider;
    const QColor accent = posterAccent(3);
    const QByteArray poster = asWebp(paintPoster(u"Orbit"_s, u"A film"_s, 3));
    QVERIFY(poster.contains("WEBP"));
    HttpReply posterReply;
    posterReply.contentType = "image/webp"_ba;
    posterReply.body = poster;
    provider.http().on(u"/orbit.webp"_s, posterReply);
    XtreamEntry orbit;
    orbit.name = u"Orbit"_s;
    orbit.poster = provider.http().url(u"/orbit.webp"_s);
    const QString film = provider.add(XtreamAction::vodStreams, orbit);
    provider.setNames(XtreamAction::vodCategories, {u"Test"_s});
    storeAccount(provider);

    QVERIFY(start());
    QTRY_VERIFY_WITH_TIMEOUT(filesWith(poster) == 1, startMs);
    QVERIFY(!screenShows(accent));
    QVERIFY(clickUntil({moviesTab, firstCategory}, [&] { return screenShows(accent); }));
    keepScreenshot(u"posters"_s);
    QVERIFY(clickUntil({firstPoster}, [&] { return provider.http().requestCount(film) > 0; }));
    QVERIFY(desktop::Screen::waitUntilMoving(window->childRect(minimumPicture)));
    keepScreenshot(u"film"_s);
    QVERIFY(closeWindow());
}

VANTIRO_TEST_MAIN(tst_Program)
#include "tst_Program.moc"
