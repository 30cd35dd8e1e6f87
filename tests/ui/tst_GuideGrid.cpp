#include "GuideFixture.h"
#include "support/TestMain.h"
#include "ui/GuideGrid.h"

#include <QContextMenuEvent>
#include <QImage>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

using Keys = QList<QKeyCombination>;

/// The places of the line for now in a row of pixels.
QList<int> nowLine(const QWidget &viewport, int y)
{
    const QImage picture = const_cast<QWidget &>(viewport).grab().toImage();
    QList<int> places;
    for (int x = 0; x < picture.width(); ++x) {
        if (picture.pixelColor(x, y) == QColor(0xef4444))
            places.append(x);
    }
    return places;
}

} // namespace

/// The grid with a stored guide.
class tst_GuideGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void anotherGuideIsAskedAnew();
    void keys_data();
    void keys();
    void clicks_data();
    void clicks();
    void activating_data();
    void activating();
    void doubleClicks_data();
    void doubleClicks();
    void menus();
    void menuByKeyFromRightToLeft();
    void wheel_data();
    void wheel();
    void days();
    void lineForNow_data();
    void lineForNow();
    void whatIsCurrentIsSpoken();
    void withoutEntries();
    void manyRows();

private:
    /// The entry and the programme that are current.
    QString current() const
    {
        const QString id = grid->currentId();
        const auto programme = grid->currentProgramme();
        return id.mid(id.lastIndexOf(u'/') + 1) + u' ' + (programme ? programme->title : u"-"_s);
    }
    /// Just after so many hours from now, in the middle of a row.
    QPoint place(int row, qint64 hours) const
    {
        const QFontMetrics metrics = grid->fontMetrics();
        const int rowHeight = metrics.height() + 24;
        const int away = 5 + static_cast<int>(hours) * 32 * metrics.averageCharWidth();
        const int x =
            nowLine(*grid->viewport(), 100).value(0) + (grid->isRightToLeft() ? -away : away);
        return {x, metrics.height() + 12 + row * rowHeight + rowHeight / 2};
    }

    std::unique_ptr<GuideFixture> fixture;
    std::unique_ptr<GuideGrid> grid;
};

void tst_GuideGrid::init()
{
    grid.reset();
    fixture = std::make_unique<GuideFixture>();
    grid = std::make_unique<GuideGrid>();
    grid->resize(1000, 300);
    grid->setEntries(fixture->entries());
    grid->setGuide(&fixture->guide);
    grid->show();
    QVERIFY(QTest::qWaitForWindowActive(grid.get()));
    grid->setFocus();
    QTRY_VERIFY(fixture->isShownBy(*grid));
    QCOMPARE(current(), u"One Running"_s);
}

void tst_GuideGrid::anotherGuideIsAskedAnew()
{
    fixture->stored.clearGuide();
    fixture->programme("one", -1, 2, "Replaced");
    fixture->stored.addChannel(u"one"_s, u"1"_s);
    fixture->store();
    fixture->guide.reload();
    QTRY_COMPARE(current(), u"One Replaced"_s);
    grid->setGuide(nullptr);
    QCOMPARE(current(), u"One -"_s);
}

void tst_GuideGrid::keys_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    const auto row = [](const char *name, const Keys &keys, const QString &expected,
                        Qt::LayoutDirection direction = Qt::LeftToRight) {
        QTest::newRow(name) << keys << expected << direction;
    };
    const QKeyCombination dayBack(Qt::ControlModifier, Qt::Key_Left);
    const QKeyCombination dayOn(Qt::ControlModifier, Qt::Key_Right);
    row("the next programme", {Qt::Key_Right}, u"One Later"_s);
    row("the one before", {Qt::Key_Left}, u"One Old"_s);
    row("and back", {Qt::Key_Left, Qt::Key_Right}, u"One Running"_s);
    row("the channel below, at the same time", {Qt::Key_Down}, u"Two Film"_s);
    row("the same later", {Qt::Key_Right, Qt::Key_Down}, u"Two News"_s);
    row("the channel above", {Qt::Key_Down, Qt::Key_Up}, u"One Running"_s);
    row("nothing above the first one", {Qt::Key_Up}, u"One Running"_s);
    row("nothing below the last one", {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down}, u"Three -"_s);
    row("a page down", {Qt::Key_PageDown}, u"Three -"_s);
    row("a page up", {Qt::Key_PageDown, Qt::Key_PageUp}, u"One Running"_s);
    row("the next day", {dayOn}, u"One Match"_s);
    row("the day before", {dayBack}, u"One -"_s);
    row("to now", {dayOn, Qt::Key_Down, Qt::Key_Home}, u"Two Film"_s);
    row("from right to left, the next one", {Qt::Key_Left}, u"One Later"_s, Qt::RightToLeft);
    row("from right to left, the one before", {Qt::Key_Right}, u"One Old"_s, Qt::RightToLeft);
    row("from right to left, the next day", {dayBack}, u"One Match"_s, Qt::RightToLeft);
}

void tst_GuideGrid::keys()
{
    QFETCH(Keys, keys);
    QFETCH(QString, expected);
    QFETCH(Qt::LayoutDirection, direction);
    grid->setLayoutDirection(direction);
    for (const QKeyCombination &key : keys)
        QTest::keyClick(grid.get(), key.key(), key.keyboardModifiers());
    QTRY_COMPARE(current(), expected);
}

void tst_GuideGrid::clicks_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("from left to right") << Qt::LeftToRight;
    QTest::newRow("from right to left") << Qt::RightToLeft;
}

void tst_GuideGrid::clicks()
{
    QFETCH(Qt::LayoutDirection, direction);
    grid->setLayoutDirection(direction);
    const auto click = [&](const QPoint &at) {
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, at);
    };
    click(place(1, 0));
    QCOMPARE(current(), u"Two Film"_s);
    click(place(1, 2));
    QCOMPARE(current(), u"Two News"_s);
    // The name keeps the time.
    const int names = direction == Qt::LeftToRight ? 5 : grid->viewport()->width() - 5;
    click({names, place(0, 0).y()});
    QCOMPARE(current(), u"One Later"_s);
    // The header and the room below the rows are no cells.
    click({place(0, 0).x(), 5});
    click({place(0, 0).x(), grid->viewport()->height() - 5});
    QCOMPARE(current(), u"One Later"_s);
}

void tst_GuideGrid::activating_data()
{
    QTest::addColumn<Keys>("way");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("programme");
    const QString none;
    QTest::newRow("what runs now") << Keys{} << u"One Running"_s << Qt::Key_Return << none;
    QTest::newRow("by the other key") << Keys{} << u"One Running"_s << Qt::Key_Enter << none;
    QTest::newRow("what is to come")
        << Keys{Qt::Key_Right} << u"One Later"_s << Qt::Key_Return << u"Later"_s;
    QTest::newRow("what is over") << Keys{Qt::Key_Left} << u"One Old"_s << Qt::Key_Return
                                  << u"Old"_s;
    QTest::newRow("a channel without a guide")
        << Keys{Qt::Key_PageDown} << u"Three -"_s << Qt::Key_Return << none;
}

void tst_GuideGrid::activating()
{
    QFETCH(Keys, way);
    QFETCH(QString, chosen);
    QFETCH(Qt::Key, key);
    QFETCH(QString, programme);
    QSignalSpy entries(grid.get(), &GuideGrid::activated);
    QSignalSpy others(grid.get(), &GuideGrid::programmeActivated);
    for (const QKeyCombination &step : way)
        QTest::keyClick(grid.get(), step.key());
    // Hours that have come into view are asked for.
    QTRY_COMPARE(current(), chosen);
    QTest::keyClick(grid.get(), key);
    QCOMPARE(entries.count() + others.count(), 1);
    const QList<QVariant> signal = others.isEmpty() ? entries.first() : others.first();
    QCOMPARE(signal.at(0).value<MediaItem>().name.toString(), chosen.section(u' ', 0, 0));
    QCOMPARE(signal.size() > 1 ? signal.at(1).value<GuideProgramme>().title : QString(), programme);

    // A double click does the same, and on a name it is the channel.
    entries.clear();
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, QPoint(5, place(1, 0).y()));
    QCOMPARE(entries.count(), 1);
    QCOMPARE(entries.first().at(0).value<MediaItem>().name.toString(), u"Two"_s);
}

void tst_GuideGrid::doubleClicks_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<int>("row");
    QTest::addColumn<qint64>("hours");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("programme");
    const QString none;
    QTest::newRow("what runs now") << Qt::LeftButton << 1 << qint64(0) << u"Two"_s << none;
    QTest::newRow("what is to come") << Qt::LeftButton << 1 << qint64(2) << none << u"News"_s;
    QTest::newRow("the other button") << Qt::RightButton << 1 << qint64(2) << none << none;
    QTest::newRow("below the rows") << Qt::LeftButton << 4 << qint64(2) << none << none;
}

void tst_GuideGrid::doubleClicks()
{
    QFETCH(const Qt::MouseButton, button);
    QFETCH(const int, row);
    QFETCH(const qint64, hours);
    QFETCH(const QString, entry);
    QFETCH(const QString, programme);
    QString activated;
    QString chosen;
    connect(grid.get(), &GuideGrid::activated, this,
            [&activated](const MediaItem &item) { activated += item.name.toString(); });
    connect(
        grid.get(), &GuideGrid::programmeActivated, this,
        [&chosen](const MediaItem & /*item*/, const GuideProgramme &one) { chosen += one.title; });
    grid->resize(3000, 600); // hours and rows are as wide and high as the font asks for
    const QPoint at = place(row, hours);
    QVERIFY(grid->viewport()->rect().contains(at));
    QTest::mouseDClick(grid->viewport(), button, {}, at);
    QCOMPARE(activated, entry);
    QCOMPARE(chosen, programme);
}

void tst_GuideGrid::menus()
{
    QSignalSpy menus(grid.get(), &GuideGrid::contextMenuRequested);
    const QPoint film = place(1, 0);
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, film, grid->viewport()->mapToGlobal(film));
    QCoreApplication::sendEvent(grid->viewport(), &byMouse);
    QCOMPARE(menus.count(), 1);
    QCOMPARE(current(), u"Two Film"_s);
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, QPoint());
    QCoreApplication::sendEvent(grid.get(), &byKey);
    QCOMPARE(menus.count(), 2);
    QCOMPARE(current(), u"Two Film"_s);
    const QPoint place = grid->viewport()->mapFromGlobal(menus.last().at(0).toPoint());
    QVERIFY(grid->viewport()->rect().contains(place));
    // Not for the room below the rows.
    const QPoint below(film.x(), grid->viewport()->height() - 5);
    QContextMenuEvent nowhere(QContextMenuEvent::Mouse, below, {});
    QCoreApplication::sendEvent(grid->viewport(), &nowhere);
    QCOMPARE(menus.count(), 2);
}

void tst_GuideGrid::menuByKeyFromRightToLeft()
{
    grid->setLayoutDirection(Qt::RightToLeft);
    QSignalSpy menus(grid.get(), &GuideGrid::contextMenuRequested);
    grid->setCurrentRow(1);
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, QPoint());
    QCoreApplication::sendEvent(grid.get(), &byKey);
    QCOMPARE(menus.count(), 1);
    const QPoint place = grid->viewport()->mapFromGlobal(menus.last().at(0).toPoint());
    QVERIFY(grid->viewport()->rect().contains(place));
    QVERIFY2(place.x() > grid->viewport()->width() / 2, "the names stand on the right");
}

void tst_GuideGrid::wheel_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QPoint>("turned");
    QTest::addColumn<bool>("channels");
    const Qt::KeyboardModifiers none;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    QTest::newRow("channels") << none << QPoint(0, -120) << true;
    QTest::newRow("with Shift, time") << shift << QPoint(0, -120) << false;
    QTest::newRow("with Shift, by a system that turns it") << shift << QPoint(-120, 0) << false;
}

void tst_GuideGrid::wheel()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QPoint, turned);
    QFETCH(bool, channels);
    grid->resize(1000, 120);
    const int down = grid->verticalScrollBar()->value();
    const int on = grid->horizontalScrollBar()->value();
    QWheelEvent event(QPointF(500, 60), grid->mapToGlobal(QPointF(500, 60)), {}, turned,
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(grid->viewport(), &event);
    QCOMPARE(grid->verticalScrollBar()->value() > down, channels);
    QCOMPARE(grid->horizontalScrollBar()->value() > on, !channels);
}

void tst_GuideGrid::days()
{
    const QDate today = QDate::currentDate();
    const QDate last = QDateTime::fromSecsSinceEpoch(fixture->at(20)).date();
    // As far back as the archive, as far ahead as the guide.
    QTRY_COMPARE(grid->days().constFirst(), today.addDays(-3));
    QTRY_COMPARE(grid->days().constLast(), last);
    QCOMPARE(grid->shownDay(), today);
    grid->showDay(today.addDays(-2));
    QCOMPARE(grid->shownDay(), today.addDays(-2));
    grid->showNow();
    QCOMPARE(grid->shownDay(), today);
    QCOMPARE(current(), u"One Running"_s);
}

void tst_GuideGrid::lineForNow_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("from left to right") << Qt::LeftToRight;
    QTest::newRow("from right to left") << Qt::RightToLeft;
}

void tst_GuideGrid::lineForNow()
{
    QFETCH(Qt::LayoutDirection, direction);
    grid->setLayoutDirection(direction);
    const QWidget &viewport = *grid->viewport();
    const int below = viewport.height() - 5;
    QList<int> places = nowLine(viewport, below);
    QCOMPARE(places.size(), 2);
    // The visible part begins at the last half hour, so that the line is near the names.
    const int fromNames =
        direction == Qt::LeftToRight ? places.first() : viewport.width() - places.last();
    QVERIFY(fromNames < viewport.width() / 2);
    // It moves with the time.
    grid->horizontalScrollBar()->setValue(grid->horizontalScrollBar()->value() - 40);
    const int moved = direction == Qt::LeftToRight ? 40 : -40;
    QCOMPARE(nowLine(viewport, below).value(0), places.first() + moved);
    grid->showDay(QDate::currentDate().addDays(-2));
    QCOMPARE(nowLine(viewport, below), QList<int>());
}

void tst_GuideGrid::whatIsCurrentIsSpoken()
{
    QCOMPARE(grid->accessibleName(), u"Programme guide"_s);
    QSignalSpy changes(grid.get(), &GuideGrid::currentChanged);
    QTest::keyClick(grid.get(), Qt::Key_Left);
    QVERIFY(!changes.isEmpty());
    QTRY_VERIFY(grid->accessibleDescription().startsWith("One, Old, "_L1));
    QVERIFY(grid->accessibleDescription().endsWith(", in the archive"_L1));
    QVERIFY(grid->isCurrentInArchive());
    QTest::keyClick(grid.get(), Qt::Key_Home);
    QTest::keyClick(grid.get(), Qt::Key_Down);
    QVERIFY(grid->accessibleDescription().startsWith("Two, Film, "_L1));
    QVERIFY(!grid->isCurrentInArchive());
}

void tst_GuideGrid::withoutEntries()
{
    grid->setEntries({});
    QSignalSpy entries(grid.get(), &GuideGrid::activated);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_PageDown, Qt::Key_Return})
        QTest::keyClick(grid.get(), key);
    grid->grab();
    QCOMPARE(grid->currentRow(), -1);
    QCOMPARE(grid->currentId(), QString());
    QVERIFY(!grid->isCurrentInArchive());
    QSignalSpy menus(grid.get(), &GuideGrid::contextMenuRequested);
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, QPoint());
    QCoreApplication::sendEvent(grid.get(), &byKey);
    QCOMPARE(menus.count(), 0);
    QCOMPARE(entries.count(), 0);
    QCOMPARE(grid->accessibleDescription(), QString());
    grid->setEntries(fixture->entries());
    QTRY_COMPARE(current(), u"One Running"_s);
}

void tst_GuideGrid::manyRows()
{
    constexpr int count = 45'000;
    grid->setEntries({fixture->items, QList<int>(count, 1)});
    const QScrollBar &bar = *grid->verticalScrollBar();
    const int rowHeight = bar.singleStep();
    QCOMPARE(bar.maximum() + bar.pageStep(), count * rowHeight);
    grid->setCurrentRow(count - 1);
    QCOMPARE(bar.value(), bar.maximum());
    QTRY_COMPARE(current(), u"Two Film"_s);
}

VANTIRO_TEST_MAIN(tst_GuideGrid)
#include "tst_GuideGrid.moc"
