// Films and shows with their posters: they come as the user scrolls, a film and an episode play,
// and "Next Episode" goes on into the next season.

#include "e2e/PlayerSession.h"
#include "fakeprovider/PosterArt.h"
#include "fakeprovider/XtreamProvider.h"
#include "model/SourceManager.h"
#include "support/TestMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const QStringList films{
    u"A Quiet Harbour"_s,    u"Amber Road"_s,     u"Beyond the Dunes"_s,  u"Blue Hour"_s,
    u"City of Rain"_s,       u"Cloud Garden"_s,   u"Distant Shore"_s,     u"Echo Valley"_s,
    u"First Snow"_s,         u"Glass Mountain"_s, u"Half a Moon"_s,       u"Iron Coast"_s,
    u"July Afternoon"_s,     u"Last Ferry Out"_s, u"Letters to Nora"_s,   u"Long Way Up"_s,
    u"Midnight Orchard"_s,   u"North of Here"_s,  u"Orange Skies"_s,      u"Paper Lanterns"_s,
    u"Red Canyon"_s,         u"Salt and Stone"_s, u"Seven Summers"_s,     u"Silver Lake"_s,
    u"Slow Train West"_s,    u"Tall Grass"_s,     u"The Ninth Wave"_s,    u"The Old Observatory"_s,
    u"Under the Pines"_s,    u"Violet Dawn"_s,    u"Where Rivers Meet"_s, u"Winter Light"_s,
    u"Yesterday's Garden"_s, u"Zero Meridian"_s};
const QStringList shows{u"Harbour Lights"_s, u"Lighthouse Keepers"_s, u"Night Shift"_s,
                        u"Second Nature"_s,  u"The Long Valley"_s,    u"Wild Islands"_s};
constexpr int firstShow = 40; // what the posters of shows are numbered from

QByteArray compact(const QJsonArray &array)
{
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

/// Three seasons of "Harbour Lights"; the ids are season and number.
QByteArray seriesInfo()
{
    const QList<QStringList> seasons{
        {u"Arrivals"_s, u"Low Tide"_s, u"The Fog Signal"_s, u"Safe Mooring"_s},
        {u"New Charts"_s, u"Crosswind"_s, u"The Regatta"_s, u"Storm Warning"_s, u"Anchors"_s},
        {u"Homeward"_s, u"Open Water"_s}};
    QJsonObject episodes;
    for (int season = 1; season <= seasons.size(); ++season) {
        QJsonArray list;
        for (const QString &title : seasons.at(season - 1)) {
            const auto number = list.size() + 1;
            list.append(QJsonObject{{u"id"_s, u"%1%2"_s.arg(season).arg(number)},
                                    {u"episode_num"_s, number},
                                    {u"title"_s, title},
                                    {u"container_extension"_s, u"mp4"_s}});
        }
        episodes.insert(QString::number(season), list);
    }
    const QJsonObject info{{u"name"_s, shows.constFirst()}};
    return QJsonDocument(QJsonObject{{u"info"_s, info}, {u"episodes"_s, episodes}}).toJson();
}

/// Whether a poster's accent fills its stripe in that part of the screen.
bool showsAccent(const QRect &rect, int number)
{
    const QImage image = Screen::grab(rect).convertToFormat(QImage::Format_RGB32);
    const QRgb accent = posterAccent(number).rgb();
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            found += image.pixel(x, y) == accent ? 1 : 0;
        }
    }
    // The stripe is 140 x 12 pixels in the grid; a part of it may be under the list's edge.
    return found > 300;
}

} // namespace

class TestShows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void filmsShowTheirPosters();
    void episodesFollowOneAnother();

private:
    void addFilms();
    void addShows();
    QString addPoster(const QString &title, int number);
    /// Drags the border between the tabs and the player to the right.
    [[nodiscard]] bool widenTabs(int pixels) const;

    std::unique_ptr<XtreamProvider> provider;
    std::unique_ptr<PlayerSession> session;
};

void TestShows::init()
{
    PrivateProfile::current().clear();
    provider = std::make_unique<XtreamProvider>();
    provider->setNames(XtreamAction::liveCategories, {u"All Channels"_s});
    provider->setNames(XtreamAction::liveStreams, {u"Night News"_s});
    addFilms();
    addShows();

    SourceConfig account = defaultSourceConfig();
    account.type = SourceType::Xtream;
    account.name = u"Home"_s;
    account.url = provider->url();
    account.username = provider->user();
    account.password = provider->password();
    SourceManager(nullptr).saveSource(account);
    session = std::make_unique<PlayerSession>();
    QVERIFY(session->start());
}

void TestShows::cleanup()
{
    session.reset();
    provider.reset();
}

QString TestShows::addPoster(const QString &title, int number)
{
    const QString path = u"/art/%1.png"_s.arg(number);
    HttpReply reply;
    reply.contentType = "image/png"_ba;
    reply.body = paintPoster(title, number < firstShow ? u"a film"_s : u"the series"_s, number);
    provider->http().on(path, reply);
    return provider->http().url(path);
}

void TestShows::addFilms()
{
    provider->setNames(XtreamAction::vodCategories, {u"Drama"_s, u"Adventure"_s});
    QJsonArray elements;
    for (const QString &title : films) {
        const int number = static_cast<int>(elements.size());
        elements.append(QJsonObject{{u"stream_id"_s, number},
                                    {u"name"_s, title},
                                    {u"category_id"_s, u"1"_s},
                                    {u"container_extension"_s, u"mp4"_s},
                                    {u"stream_icon"_s, addPoster(title, number)}});
    }
    provider->setReply(XtreamAction::vodStreams, compact(elements));
}

void TestShows::addShows()
{
    provider->setNames(XtreamAction::seriesCategories, {u"Drama"_s});
    QJsonArray elements;
    for (const QString &title : shows) {
        const int number = firstShow + static_cast<int>(elements.size());
        elements.append(QJsonObject{{u"series_id"_s, number},
                                    {u"name"_s, title},
                                    {u"category_id"_s, u"1"_s},
                                    {u"cover"_s, addPoster(title, number)}});
    }
    provider->setReply(XtreamAction::series, compact(elements));
    provider->setReply(XtreamAction::seriesInfo, seriesInfo());
}

bool TestShows::widenTabs(int pixels) const
{
    const QRect video = session->videoRect();
    // The panel has a margin of four pixels, the handle is as wide.
    const QPoint border(video.left() - 6, video.center().y());
    return Mouse::drag(border, border + QPoint(pixels, 0));
}

void TestShows::filmsShowTheirPosters()
{
    QVERIFY(Mouse::click(session->window.waitFor(Role::Tab, u"Movies"_s)));
    QVERIFY(Mouse::click(session->window.waitFor(Role::ListItem, u"Drama"_s)));
    const auto lastFilm = static_cast<int>(films.size()) - 1;
    const QString lastPoster = u"/art/%1.png"_s.arg(lastFilm);
    const Accessible list = session->window.waitFor(Role::List);
    QTRY_VERIFY(showsAccent(list.cell(0).rect(), 0));
    QTRY_VERIFY(showsAccent(list.cell(1).rect(), 1));
    QCOMPARE(provider->http().requestCount(u"/art/0.png"_s), 1);
    QCOMPARE(provider->http().requestCount(lastPoster), 0);

    QVERIFY(widenTabs(230));
    QVERIFY(Mouse::wheel(list, -60));
    QTRY_VERIFY(showsAccent(list.cell(lastFilm).rect(), lastFilm));
    QCOMPARE(provider->http().requestCount(lastPoster), 1);
    QVERIFY(Mouse::wheel(list, 60));
    for (int number = 0; number < 6; ++number) {
        QTRY_VERIFY2(showsAccent(list.cell(number).rect(), number), qPrintable(films.at(number)));
    }

    QVERIFY(Mouse::click(session->window.waitFor(Role::ListItem, films.at(3))));
    QVERIFY(session->showsLabel(u"Playing: "_s + films.at(3)));
    QVERIFY(session->seesPicture());
    QVERIFY(provider->http().requestCount(u"/movie/user/secret/3.mp4"_s) > 0);
    session->keepScreenshot(u"movies"_s);
    QVERIFY(session->close());
    QCOMPARE(session->app.exitCode(), 0);
}

void TestShows::episodesFollowOneAnother()
{
    QVERIFY(Mouse::click(session->window.waitFor(Role::Tab, u"TV Shows"_s)));
    QVERIFY(Mouse::click(session->window.waitFor(Role::ListItem, u"All Categories"_s)));
    const Accessible show = session->window.waitFor(Role::ListItem, shows.constFirst());
    QTRY_VERIFY(showsAccent(show.rect(), firstShow));
    session->keepScreenshot(u"shows"_s);
    QVERIFY(Mouse::click(show));
    QVERIFY(session->showsLabel(shows.constFirst()));

    QVERIFY(Mouse::click(session->window.waitFor(Role::Cell, u"E04 - Safe Mooring"_s)));
    QVERIFY(session->showsLabel(u"Playing: Harbour Lights - S01E04 - Safe Mooring"_s));
    QVERIFY(session->seesPicture());

    QVERIFY(session->clickButton(u"Next Episode"_s));
    QVERIFY(session->showsLabel(u"Playing: Harbour Lights - S02E01 - New Charts"_s));
    QTRY_VERIFY(provider->http().requestCount(u"/series/user/secret/21.mp4"_s) > 0);
    QVERIFY(session->seesPicture());
    session->keepScreenshot(u"episodes"_s);

    QVERIFY(Mouse::click(session->window.waitFor(Role::Cell, u"E02 - Open Water"_s)));
    QVERIFY(session->showsLabel(u"Playing: Harbour Lights - S03E02 - Open Water"_s));
    QTRY_VERIFY(!session->window.find(Role::Button, u"Next Episode"_s).isEnabled());
    QCOMPARE(provider->requestCount(XtreamAction::seriesInfo), 1);
    QVERIFY(session->close());
    QCOMPARE(session->app.exitCode(), 0);
}

VANTIRO_TEST_MAIN(TestShows)
#include "tst_Shows.moc"
