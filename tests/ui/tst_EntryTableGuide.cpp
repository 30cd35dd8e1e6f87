#include "guide/Guide.h"
#include "guide/GuideStore.h"
#include "guide/StoredGuide.h"
#include "support/TestMain.h"
#include "ui/EntryTable.h"
#include "ui/OnNowLines.h"

#include <QDateTime>
#include <QHeaderView>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

// What runs on the channels, in the rows of a table.

namespace {

constexpr int entryCount = 300'000;
constexpr qint64 hour = 3600;

QString idOf(int row)
{
    return "http://h/"_L1 + QString::number(row);
}

ShownEntries makeEntries()
{
    QList<MediaItem> items;
    QList<int> rows;
    for (int row = 0; row < entryCount; ++row) {
        MediaItem item;
        item.id = idOf(row);
        item.name = "Channel "_L1 + QString::number(row);
        items.append(item);
        rows.append(row);
    }
    return {items, rows};
}

} // namespace

class tst_EntryTableGuide : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void withoutGuide();
    void secondLine();
    void toolTip();
    void toolTipOfALongDescription();
    void theNameLeavesRoomForTheStar_data();
    void theNameLeavesRoomForTheStar();
    void onlyVisibleRows();
    void rowsThatAreScrolledTo();
    void nextProgramme();
    void suggestion();
    void turnedOff();
    void describedBesideItsMark();
    void rowsThatAreNotKnownYet();
    void percent_data();
    void percent();

private:
    QString text(int row, int role) const { return table->item(row, 0)->data(role).toString(); }
    bool isKnown(int row) const { return table->onNow(entries.at(row)).has_value(); }

    StoredGuide contents;
    ShownEntries entries;
    qint64 now = 0;
    std::unique_ptr<Guide> guide;
    std::unique_ptr<EntryTable> table;
};

void tst_EntryTableGuide::initTestCase()
{
    entries = makeEntries();
    now = QDateTime::currentSecsSinceEpoch();
    for (int row = 0; row < 200; ++row) {
        const QString id = "c"_L1 + QString::number(row);
        contents.addEntry(idOf(row), entries.at(row).name,
                          row == 1 ? QString() : "tvg-id=\""_L1 + id + '"'_L1);
        contents.addChannel(id, entries.at(row).name.toString() + (row == 1 ? " HD"_L1 : ""_L1));
        contents.addProgramme(id, now - hour, now + hour, "First <b>"_L1 + id, u"What & why"_s);
        contents.addProgramme(id, now + hour, now + 2 * hour, "Second "_L1 + id);
    }
    GuideImportJob job = contents.job();
    job.now = now;
    QCOMPARE(GuideImport(job).run().programmes, 400);
}

void tst_EntryTableGuide::init()
{
    table.reset();
    guide = std::make_unique<Guide>(nullptr);
    guide->open(contents.path(), 0);
    table = std::make_unique<EntryTable>(u"Channel"_s);
    table->setFocusPolicy(Qt::NoFocus); // which would show in the pictures
    table->resize(300, 400);
    table->fill(entries);
    table->show();
}

void tst_EntryTableGuide::withoutGuide()
{
    const EntryTable plain(u"Channel"_s);
    QCOMPARE(table->rowHeight(0), plain.verticalHeader()->defaultSectionSize());
    QCOMPARE(text(0, Qt::AccessibleDescriptionRole), QString());
    QCOMPARE(text(0, Qt::ToolTipRole), QString());
    QVERIFY(!isKnown(0));
    QCOMPARE(table->findChildren<QTimer *>(u"minuteTimer"_s).size(), 0);
}

void tst_EntryTableGuide::secondLine()
{
    const int plainHeight = table->rowHeight(0);
    table->setGuide(guide.get());
    QVERIFY(table->rowHeight(0) > plainHeight);
    const QImage before = table->viewport()->grab().toImage();
    QTRY_VERIFY(isKnown(0));
    const QString line = text(0, Qt::AccessibleDescriptionRole);
    QVERIFY2(line.endsWith(" First <b>c0"_L1), qPrintable(line));
    QTRY_VERIFY(table->viewport()->grab().toImage() != before);
    QCOMPARE(text(0, Qt::DisplayRole), u"Channel 0"_s);
}

void tst_EntryTableGuide::toolTip()
{
    table->setGuide(guide.get());
    QTRY_VERIFY(isKnown(0));
    const QString tip = text(0, Qt::ToolTipRole);
    QVERIFY2(tip.contains("First &lt;b&gt;c0"_L1), qPrintable(tip));
    QVERIFY(tip.contains("What &amp; why"_L1));
    QVERIFY(tip.contains("Second c0"_L1));
    QVERIFY(!tip.contains("<b>c0"_L1));
}

void tst_EntryTableGuide::toolTipOfALongDescription()
{
    OnNow coming;
    coming.entry.match.rule = GuideMatch::Rule::Suggestion;
    QCOMPARE(onNowToolTip(coming), QString());
    coming.next = GuideProgramme{now, now + hour, u"Film"_s, {}};
    QVERIFY(onNowToolTip(coming).contains("Next"_L1));
    QVERIFY(!onNowToolTip(coming).contains("Now"_L1));

    OnNow onNow;
    onNow.now = GuideProgramme{now, now + hour, u"Film"_s, u"word "_s.repeated(200)};
    const QString tip = onNowToolTip(onNow);
    QVERIFY(tip.contains("word word"_L1));
    QVERIFY(tip.endsWith(u"\u2026</p>"_s));
    QVERIFY2(tip.size() < 800, qPrintable(tip));
}

void tst_EntryTableGuide::theNameLeavesRoomForTheStar_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("from left to right") << Qt::LeftToRight;
    QTest::newRow("from right to left") << Qt::RightToLeft;
}

void tst_EntryTableGuide::theNameLeavesRoomForTheStar()
{
    QFETCH(const Qt::LayoutDirection, direction);
    // Two rows that differ in nothing but the name.
    QList<MediaItem> items(2);
    items[1].name = u"H"_s.repeated(100);
    EntryTable marked(u"Channel"_s);
    marked.setMarks([](const MediaItem &) { return EntryMark{true, false, 0}; });
    marked.setFocusPolicy(Qt::NoFocus);
    marked.setAlternatingRowColors(false);
    marked.setLayoutDirection(direction);
    marked.resize(300, 400);
    marked.fill({items, {0, 1}});
    marked.setGuide(guide.get());
    marked.show();
    QVERIFY(QTest::qWaitForWindowExposed(&marked));
    const QImage picture = marked.viewport()->grab().toImage();
    const auto part = [&](int row, int fromEdge, int width) {
        QRect cell = marked.visualItemRect(marked.item(row, 0));
        const int left = direction == Qt::LeftToRight ? cell.right() + 1 - fromEdge - width
                                                      : cell.left() + fromEdge;
        return picture.copy(left, cell.top(), width, cell.height());
    };
    QCOMPARE(part(1, 0, entryMarkSize), part(0, 0, entryMarkSize));
    QVERIFY(part(1, 2 * entryMarkSize, entryMarkSize) != part(0, 2 * entryMarkSize, entryMarkSize));
}

void tst_EntryTableGuide::onlyVisibleRows()
{
    table->setGuide(guide.get());
    QTRY_VERIFY(isKnown(0));
    const int last = table->rowAt(table->viewport()->height() - 1);
    QVERIFY(last > 0);
    QVERIFY(isKnown(last));
    QVERIFY(!isKnown(last + 1));
    QVERIFY(!isKnown(199));
}

void tst_EntryTableGuide::rowsThatAreScrolledTo()
{
    table->setGuide(guide.get());
    QTRY_VERIFY(isKnown(0));
    table->scrollToItem(table->item(150, 0), QAbstractItemView::PositionAtTop);
    QTRY_VERIFY(isKnown(150));
    QVERIFY(!isKnown(100));
    table->scrollToBottom(); // of which the guide knows nothing
    table->scrollToTop();
    QVERIFY(isKnown(0));
}

void tst_EntryTableGuide::nextProgramme()
{
    table->setGuide(guide.get());
    QTRY_VERIFY(isKnown(0));
    StoredGuide later;
    later.addEntry(idOf(0), u"Channel 0"_s, uR"(tvg-id="c0")"_s);
    later.addProgramme(u"c0"_s, now - 60, now + hour, u"Later"_s);
    GuideImportJob job = later.job();
    job.now = now;
    job.storePath = contents.path() + u"2"_s;
    QCOMPARE(GuideImport(job).run().programmes, 1);
    // Another minute begins: the same rows are asked for again.
    auto *minute = table->findChild<QTimer *>(u"minuteTimer"_s);
    QVERIFY(minute->isActive());
    QVERIFY(minute->remainingTime() <= 60'000);
    guide->open(job.storePath, 0);
    QTRY_VERIFY(text(0, Qt::AccessibleDescriptionRole).endsWith("Later"_L1));
    GuideStore store(job.storePath, GuideStore::Mode::Write);
    QVERIFY(store.open() && store.run(u"UPDATE programme SET title = 'Much later'"_s));
    QVERIFY(text(0, Qt::AccessibleDescriptionRole).endsWith("Later"_L1));
    minute->start(0);
    QTRY_VERIFY(text(0, Qt::AccessibleDescriptionRole).endsWith("Much later"_L1));
    QVERIFY(minute->remainingTime() > 0);
}

void tst_EntryTableGuide::suggestion()
{
    table->setGuide(guide.get());
    QTRY_VERIFY(isKnown(1));
    QCOMPARE(table->onNow(entries.at(1))->entry.match.rule, GuideMatch::Rule::Suggestion);
    QVERIFY(text(1, Qt::ToolTipRole).contains("suggestion"_L1));
    QVERIFY(!text(0, Qt::ToolTipRole).contains("suggestion"_L1));
}

void tst_EntryTableGuide::turnedOff()
{
    const int plainHeight = table->rowHeight(0);
    const QImage plain = table->viewport()->grab().toImage();
    table->setGuide(guide.get());
    QTRY_VERIFY(isKnown(0));
    table->setGuide(nullptr);
    QCOMPARE(table->rowHeight(0), plainHeight);
    QVERIFY(!isKnown(0));
    QCOMPARE(text(0, Qt::ToolTipRole), QString());
    QCOMPARE(table->viewport()->grab().toImage(), plain);
}

void tst_EntryTableGuide::describedBesideItsMark()
{
    table->setMarks([](const MediaItem &) { return EntryMark{true, false, 0}; });
    QCOMPARE(text(0, Qt::AccessibleDescriptionRole), u"Favorite"_s);
    table->setGuide(guide.get());
    QTRY_VERIFY(isKnown(0));
    const QString both = text(0, Qt::AccessibleDescriptionRole);
    QVERIFY2(both.startsWith("Favorite, "_L1) && both.endsWith(" First <b>c0"_L1),
             qPrintable(both));
}

/// The guide changes while other rows than before are asked for.
void tst_EntryTableGuide::rowsThatAreNotKnownYet()
{
    OnNowLines lines(guide.get(), nullptr);
    lines.setVisible({idOf(0), idOf(1), idOf(2)});
    QTRY_VERIFY(lines.find(idOf(2)));
    lines.setVisible({idOf(2), idOf(7)});
    Q_EMIT guide->changed();
    QVERIFY(lines.find(idOf(2)));
    QVERIFY(!lines.find(idOf(0)));
    QVERIFY(!lines.find(idOf(7)));
    QTRY_VERIFY(lines.find(idOf(7)));
}

void tst_EntryTableGuide::percent_data()
{
    QTest::addColumn<qint64>("at");
    QTest::addColumn<int>("percent");
    QTest::newRow("begins") << 0LL << 0;
    QTest::newRow("half") << 1800LL << 50;
    QTest::newRow("ends") << 3600LL << 100;
    QTest::newRow("over") << 4000LL << 100;
    QTest::newRow("not yet") << -5LL << 0;
}

void tst_EntryTableGuide::percent()
{
    QFETCH(qint64, at);
    QFETCH(int, percent);
    OnNow onNow;
    QCOMPARE(onNowPercent(onNow, at), 0);
    onNow.now = GuideProgramme{0, hour, {}, {}};
    QCOMPARE(onNowPercent(onNow, at), percent);
}

VANTIRO_TEST_MAIN(tst_EntryTableGuide)
#include "tst_EntryTableGuide.moc"
