#include "support/TestMain.h"
#include "ui/PlayingList.h"

#include <QSignalSpy>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

MediaItem channel(const QString &id, const QString &url = u"http://tv.example/x"_s)
{
    MediaItem item;
    item.id = id;
    item.name = "Channel "_L1 + id;
    item.streamUrl = url;
    return item;
}

MediaItem film(const QString &id)
{
    MediaItem item = channel(id);
    item.type = StreamKind::Movie;
    return item;
}

EntryOrigin originOf(const QString &name, qint32 type = SourceType::Playlist)
{
    SourceConfig source;
    source.name = name;
    source.type = type;
    return {source, XtreamAccount{u"http://tv.example"_s, u"u"_s, u"p"_s}};
}

/// All of a list, at that row.
PlayingPlace place(const QList<MediaItem> &items, int row,
                   CatalogSection section = CatalogSection::Channel, const QString &source = u"A"_s)
{
    QList<int> rows;
    for (int index = 0; index < items.size(); ++index) {
        rows.append(index);
    }
    return {originOf(source), section, {items, rows}, row};
}

QList<MediaItem> channels(const QStringList &ids)
{
    QList<MediaItem> items;
    for (const QString &id : ids) {
        items.append(channel(id));
    }
    return items;
}

QString idOf(const std::optional<PlayingPlace> &place)
{
    return place ? place->item().id.toString() : u"none"_s;
}

} // namespace

class tst_PlayingList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void neighbours_data();
    void neighbours();
    void theOrderIsThatOfTheRowsThatShowed();
    void whatHasNoUrlIsPassedOver();
    void withoutAList();
    void channelByNumber_data();
    void channelByNumber();
    void lastChannel_data();
    void lastChannel();
    void refreshed_data();
    void refreshed();
    void otherListsStayAtARefresh();
    void goesOnWithoutItsSource();
    void copiesShareAllEntries();
};

void tst_PlayingList::neighbours_data()
{
    QTest::addColumn<CatalogSection>("section");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("previous");
    QTest::addColumn<QString>("next");
    QTest::newRow("in the middle") << CatalogSection::Channel << 1 << u"a"_s << u"c"_s;
    QTest::newRow("before the first channel comes the last")
        << CatalogSection::Channel << 0 << u"c"_s << u"b"_s;
    QTest::newRow("after the last channel comes the first")
        << CatalogSection::Live << 2 << u"b"_s << u"a"_s;
    QTest::newRow("before the first film comes nothing")
        << CatalogSection::Movie << 0 << u"none"_s << u"b"_s;
    QTest::newRow("after the last film comes nothing")
        << CatalogSection::Movie << 2 << u"b"_s << u"none"_s;
}

void tst_PlayingList::neighbours()
{
    QFETCH(CatalogSection, section);
    QFETCH(int, row);
    PlayingList list;
    list.setPlaying(place(channels({u"a"_s, u"b"_s, u"c"_s}), row, section));
    QTEST(idOf(list.previous()), "previous");
    QTEST(idOf(list.next()), "next");
}

void tst_PlayingList::theOrderIsThatOfTheRowsThatShowed()
{
    PlayingPlace sorted = place(channels({u"a"_s, u"b"_s, u"c"_s, u"d"_s}), 1);
    sorted.entries = {channels({u"a"_s, u"b"_s, u"c"_s, u"d"_s}), {3, 0, 2}};
    PlayingList list;
    list.setPlaying(sorted);
    QCOMPARE(idOf(list.playing()), u"a"_s);
    QCOMPARE(idOf(list.previous()), u"d"_s);
    QCOMPARE(idOf(list.next()), u"c"_s);
    QCOMPARE(idOf(list.channel(1)), u"d"_s);
}

void tst_PlayingList::whatHasNoUrlIsPassedOver()
{
    PlayingList list;
    list.setPlaying(place({channel(u"a"_s), channel(u"b"_s, {}), channel(u"c"_s, {})}, 0));
    QCOMPARE(idOf(list.next()), u"none"_s);
    list.setPlaying(place({channel(u"a"_s), channel(u"b"_s, {}), channel(u"c"_s)}, 0));
    QCOMPARE(idOf(list.next()), u"c"_s);
    QCOMPARE(idOf(list.previous()), u"c"_s);
}

void tst_PlayingList::withoutAList()
{
    PlayingList list;
    list.setPlaying(place(channels({u"a"_s, u"b"_s}), 0));
    QSignalSpy changed(&list, &PlayingList::changed);
    list.clear();
    QCOMPARE(changed.size(), 1);
    for (const auto &none : {list.playing(), list.next(), list.previous(), list.channel(1)}) {
        QCOMPARE(idOf(none), u"none"_s);
    }
}

void tst_PlayingList::channelByNumber_data()
{
    QTest::addColumn<CatalogSection>("section");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the first is 1") << CatalogSection::Channel << 1 << u"a"_s;
    QTest::newRow("the last") << CatalogSection::Live << 3 << u"c"_s;
    QTest::newRow("0 is none") << CatalogSection::Channel << 0 << u"none"_s;
    QTest::newRow("too large") << CatalogSection::Channel << 4 << u"none"_s;
    QTest::newRow("films have no numbers") << CatalogSection::Movie << 1 << u"none"_s;
}

void tst_PlayingList::channelByNumber()
{
    QFETCH(CatalogSection, section);
    QFETCH(int, number);
    PlayingList list;
    list.setPlaying(place(channels({u"a"_s, u"b"_s, u"c"_s}), 1, section));
    QTEST(idOf(list.channel(number)), "expected");
}

void tst_PlayingList::lastChannel_data()
{
    QTest::addColumn<QString>("played"); ///< capitals are films, a dot is what is in no list
    QTest::addColumn<QString>("expected");
    QTest::newRow("only one") << u"a"_s << u"none"_s;
    QTest::newRow("the one before") << u"abc"_s << u"b"_s;
    QTest::newRow("there and back") << u"aba"_s << u"b"_s;
    QTest::newRow("the same again does not count") << u"abb"_s << u"a"_s;
    QTest::newRow("before a film") << u"abF"_s << u"b"_s;
    QTest::newRow("after a film") << u"aFb"_s << u"a"_s;
    QTest::newRow("back from a film") << u"abFb"_s << u"a"_s;
    QTest::newRow("what is in no list") << u"ab."_s << u"b"_s;
    QTest::newRow("no channel") << u"FG"_s << u"none"_s;
}

void tst_PlayingList::lastChannel()
{
    QFETCH(QString, played);
    PlayingList list;
    const QList<MediaItem> items = channels({u"a"_s, u"b"_s, u"c"_s});
    for (const QChar one : played) {
        if (one == u'.') {
            list.clear();
        } else if (one.isUpper()) {
            list.setPlaying(place({film(one)}, 0, CatalogSection::Movie));
        } else {
            list.setPlaying(place(items, one.unicode() - u'a'));
        }
    }
    QTEST(idOf(list.lastChannel()), "expected");
}

void tst_PlayingList::refreshed_data()
{
    QTest::addColumn<QStringList>("newIds");
    QTest::addColumn<QString>("previous");
    QTest::addColumn<QString>("next");
    QTest::newRow("nothing new") << QStringList{u"a"_s, u"b"_s, u"c"_s} << u"a"_s << u"c"_s;
    QTest::newRow("more behind") << QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s} << u"a"_s << u"c"_s;
    QTest::newRow("more in front, and some twice")
        << QStringList{u"x"_s, u"a"_s, u"b"_s, u"b"_s, u"c"_s, u"a"_s} << u"a"_s << u"c"_s;
    QTest::newRow("in another order") << QStringList{u"c"_s, u"a"_s, u"b"_s} << u"a"_s << u"c"_s;
    QTest::newRow("a neighbour is gone") << QStringList{u"a"_s, u"b"_s} << u"a"_s << u"a"_s;
    QTest::newRow("what plays is gone") << QStringList{u"c"_s} << u"a"_s << u"c"_s;
    QTest::newRow("nothing came") << QStringList() << u"a"_s << u"c"_s;
}

void tst_PlayingList::refreshed()
{
    QFETCH(QStringList, newIds);
    PlayingList list;
    list.setPlaying(place(channels({u"a"_s, u"b"_s, u"c"_s}), 1));
    EntryOrigin origin = originOf(u"A"_s);
    origin.source.lastUpdated = 5;
    const QList<MediaItem> items = channels(newIds);
    list.follow(origin, CatalogSection::Channel, items);
    QCOMPARE(idOf(list.playing()), u"b"_s);
    QTEST(idOf(list.previous()), "previous");
    QTEST(idOf(list.next()), "next");
    const bool follows = newIds.contains(u"b"_s);
    QCOMPARE(list.playing()->origin.source.lastUpdated, follows ? 5 : 0);
    // Nothing is left of the old catalog.
    QCOMPARE(list.playing()->entries.isOf(items), follows);
    // The same list again, as when it was only shown anew.
    list.follow(originOf(u"A"_s), CatalogSection::Channel, items);
    QCOMPARE(list.playing()->origin.source.lastUpdated, follows ? 5 : 0);
    QTEST(idOf(list.next()), "next");
}

void tst_PlayingList::otherListsStayAtARefresh()
{
    PlayingList list;
    list.setPlaying(place(channels({u"a"_s, u"b"_s}), 0));
    const QList<MediaItem> items = channels({u"b"_s, u"a"_s, u"z"_s});
    list.follow(originOf(u"B"_s), CatalogSection::Channel, items);
    list.follow(originOf(u"A"_s), CatalogSection::Live, items);
    QVERIFY(!list.playing()->entries.isOf(items));
}

void tst_PlayingList::goesOnWithoutItsSource()
{
    PlayingList list;
    list.setPlaying(place(channels({u"x"_s}), 0, CatalogSection::Channel, u"B"_s));
    list.setPlaying(place(channels({u"a"_s, u"b"_s}), 0));
    list.moveSource(u"A"_s, u"New"_s);
    QCOMPARE(list.next()->origin.source.name, u"New"_s);
    list.moveSource(u"New"_s, {});
    QCOMPARE(idOf(list.next()), u"b"_s);
    QCOMPARE(list.next()->origin.source.name, QString());
    QCOMPARE(list.lastChannel()->origin.source.name, u"B"_s);
}

/// A list may have hundreds of thousands of rows.
void tst_PlayingList::copiesShareAllEntries()
{
    const QList<MediaItem> items = channels({u"a"_s, u"b"_s});
    PlayingList list;
    list.setPlaying(place(items, 0));
    QVERIFY(list.playing()->entries.isOf(items));
    QVERIFY(list.next()->entries.isOf(items));
    QVERIFY(list.channel(2)->entries.isOf(items));
}

VANTIRO_TEST_GUILESS_MAIN(tst_PlayingList)
#include "tst_PlayingList.moc"
