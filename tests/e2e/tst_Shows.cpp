// Films and shows with their posters: they come as the user scrolls, a film and an episode play,
// and "Next Episode" goes on into the next season.

#include "e2e/AccountTest.h"
#include "fakeprovider/PosterArt.h"
#include "support/TestMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

constexpr int filmCount = 34;
constexpr int firstShow = 40; // what shows and their posters are numbered from

/// Three seasons of the first show; the ids are season and number.
QByteArray seriesInfo()
{
    const QList<QStringList> seasons{{u"Arrivals"_s, u"Low Tide"_s},
                                     {u"New Charts"_s, u"Crosswind"_s, u"The Regatta"_s},
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
    return QJsonDocument(QJsonObject{{u"episodes"_s, episodes}}).toJson();
}

QString posterPath(int number)
{
    return u"/posters/%1.png"_s.arg(number);
}

/// Whether a poster's accent fills its stripe in that part of the screen.
bool showsAccent(const QRect &rect, int number)
{
    const QRgb accent = posterAccent(number).rgb();
    const double share =
        Screen::share(Screen::grab(rect), [accent](QRgb pixel) { return pixel == accent; });
    // The stripe is 140 x 12 pixels in the grid; a part of it may be under the list's edge.
    return share * rect.width() * rect.height() > 300;
}

} // namespace

class TestShows : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void filmsShowTheirPosters();
    void episodesFollowOneAnother();

private:
    void fill() override;
    void add(const QString &action, const QString &name, int number);
    [[nodiscard]] bool widenTabs(int pixels) const;
};

void TestShows::fill()
{
    for (int number = 1; number <= filmCount; ++number)
        add(XtreamAction::vodStreams, u"Film %1"_s.arg(number, 2, 10, QChar(u'0')), number);
    add(XtreamAction::series, u"Harbour Lights"_s, firstShow);
    add(XtreamAction::series, u"Night Shift"_s, firstShow + 1);
    provider->setReply(XtreamAction::seriesInfo, seriesInfo());
}

void TestShows::add(const QString &action, const QString &name, int number)
{
    XtreamEntry entry;
    entry.id = number;
    entry.name = name;
    entry.poster = provider->addPoster(number, name, {});
    provider->add(action, entry);
}

/// Drags the border between the tabs and the player to the right.
bool TestShows::widenTabs(int pixels) const
{
    const QRect video = session->videoRect();
    // The panel has a margin of four pixels, the handle is as wide.
    const QPoint border(video.left() - 6, video.center().y());
    return Mouse::drag(border, border + QPoint(pixels, 0));
}

void TestShows::filmsShowTheirPosters()
{
    QVERIFY(session->openAll(UiTexts::moviesTab));
    const Accessible list = session->window.waitFor(Role::List);
    QTRY_VERIFY(showsAccent(list.cell(0).rect(), 1));
    QTRY_VERIFY(showsAccent(list.cell(1).rect(), 2));
    QCOMPARE(provider->http().requestCount(posterPath(1)), 1);
    QCOMPARE(provider->http().requestCount(posterPath(filmCount)), 0);

    QVERIFY(widenTabs(230));
    QVERIFY(Mouse::wheel(list, -60));
    QTRY_VERIFY(showsAccent(list.cell(filmCount - 1).rect(), filmCount));
    QCOMPARE(provider->http().requestCount(posterPath(filmCount)), 1);
    QVERIFY(Mouse::wheel(list, 60));
    for (int row = 0; row < 6; ++row)
        QTRY_VERIFY2(showsAccent(list.cell(row).rect(), row + 1),
                     qPrintable(list.cell(row).name()));

    QVERIFY(session->watch(u"Film 04"_s));
    QVERIFY(provider->http().requestCount(u"/movie/user/secret/4.mp4"_s) > 0);
    session->keepScreenshot(u"movies"_s);
}

void TestShows::episodesFollowOneAnother()
{
    const QString show = u"Harbour Lights"_s;
    QVERIFY(session->openAll(UiTexts::showsTab));
    QTRY_VERIFY(showsAccent(session->entry(show).rect(), firstShow));
    session->keepScreenshot(u"shows"_s);
    QVERIFY(session->play(show));
    QVERIFY(session->showsLabel(show));

    QVERIFY(session->play(u"E02 - Low Tide"_s));
    QVERIFY(session->showsLabel(UiTexts::playing(u"Harbour Lights - S01E02 - Low Tide"_s)));
    QVERIFY(session->seesPicture());
    QVERIFY(session->clickButton(u"Next Episode"_s));
    QVERIFY(session->showsLabel(UiTexts::playing(u"Harbour Lights - S02E01 - New Charts"_s)));
    QTRY_VERIFY(provider->http().requestCount(u"/series/user/secret/21.mp4"_s) > 0);
    QVERIFY(session->seesPicture());
    session->keepScreenshot(u"episodes"_s);

    QVERIFY(session->play(u"E02 - Open Water"_s));
    QVERIFY(session->showsLabel(UiTexts::playing(u"Harbour Lights - S03E02 - Open Water"_s)));
    QTRY_VERIFY(!session->window.find(Role::Button, u"Next Episode"_s).isEnabled());
    QCOMPARE(provider->requestCount(XtreamAction::seriesInfo), 1);
}

VANTIRO_TEST_MAIN(TestShows)
#include "tst_Shows.moc"
