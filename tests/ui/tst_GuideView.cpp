#include "GuideFixture.h"
#include "support/TestMain.h"
#include "ui/GuideGrid.h"
#include "ui/GuideTexts.h"
#include "ui/GuideView.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>

using namespace Qt::StringLiterals;

/// The guide of a tab with a stored guide: its days, its search and what it tells of a programme.
class tst_GuideView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void currentProgramme();
    void days();
    void theSearchFieldHasRoomForItsText();
    void programmesFound_data();
    void programmesFound();
    void onlyTheLatestSearchCounts();
    void choosing_data();
    void choosing();
    void nothingFound();
    void escape();
    void otherContents();
    void takenBackWhileItSearches();
    void searchingWithoutAGuide();
    void asManyOtherDays();

private:
    template <typename Widget>
    Widget &part(const QString &name) const
    {
        return *view->findChild<Widget *>(name);
    }
    QString text(const QString &label) const { return part<QLabel>(label).text(); }
    /// The rows of what was found, as "channel: title".
    QStringList found() const
    {
        const auto &list = part<QTableWidget>(u"guideSearchList"_s);
        QStringList rows;
        for (int row = 0; row < list.rowCount(); ++row)
            rows << list.item(row, 2)->text() + u": "_s + list.item(row, 1)->text();
        return rows;
    }
    void type(const QString &text) const { part<QLineEdit>(u"guideSearch"_s).setText(text); }

    std::unique_ptr<GuideFixture> fixture;
    std::unique_ptr<GuideView> view;
};

void tst_GuideView::init()
{
    view.reset();
    fixture = std::make_unique<GuideFixture>();
    view = std::make_unique<GuideView>();
    view->resize(900, 400);
    view->grid().setEntries(fixture->entries());
    view->setGuide(&fixture->guide);
    view->show();
    QVERIFY(QTest::qWaitForWindowActive(view.get()));
    view->grid().setFocus();
    QTRY_VERIFY(fixture->isShownBy(*view));
    QTRY_COMPARE(text(u"guideDescription"_s), u"About Running"_s);
}

void tst_GuideView::currentProgramme()
{
    const auto span = [this](qint64 from, qint64 to) {
        return spanText({fixture->at(from), fixture->at(to), {}, {}}, QTimeZone::systemTimeZone());
    };
    QCOMPARE(text(u"guideStrip"_s), span(-1, 2) + u"  Running"_s);
    QTest::keyClick(&view->grid(), Qt::Key_Left);
    QCOMPARE(text(u"guideDescription"_s), QString());
    QTRY_COMPARE(text(u"guideStrip"_s), span(-3, -1) + u"  Old (in the archive)"_s);
    // Only the last one of these counts.
    QTest::keyClick(&view->grid(), Qt::Key_Right);
    QTest::keyClick(&view->grid(), Qt::Key_Right);
    QTRY_COMPARE(text(u"guideDescription"_s), u"About Later"_s);
    view->grid().setCurrentRow(2);
    QCOMPARE(text(u"guideStrip"_s) + text(u"guideDescription"_s), QString());
}

void tst_GuideView::days()
{
    auto &combo = part<QComboBox>(u"guideDayCombo"_s);
    const QDate today = QDate::currentDate();
    const auto choose = [&combo](int row) {
        combo.setCurrentIndex(row);
        Q_EMIT combo.activated(row);
    };
    // From the oldest day of the archive.
    QTRY_COMPARE(combo.itemData(0).toDate(), today.addDays(-3));
    QCOMPARE(combo.itemText(0), dayText(today.addDays(-3), today));
    QCOMPARE(combo.currentText(), u"Today"_s);
    part<QPushButton>(u"guideDayBeforeButton"_s).click();
    QCOMPARE(combo.currentText(), u"Yesterday"_s);
    part<QPushButton>(u"guideDayAfterButton"_s).click();
    QCOMPARE(combo.currentText(), u"Today"_s);
    choose(1);
    QCOMPARE(view->grid().shownDay(), today.addDays(-2));
    part<QPushButton>(u"guideNowButton"_s).click();
    QCOMPARE(view->grid().shownDay(), today);
    QCOMPARE(combo.currentText(), u"Today"_s);
}

/// Also in a narrow window.
void tst_GuideView::theSearchFieldHasRoomForItsText()
{
    constexpr int frame = 20; // and more, as the theme draws it
    view->resize(340, 400);
    const auto &field = part<QLineEdit>(u"guideSearch"_s);
    const int text = field.fontMetrics().horizontalAdvance(field.placeholderText());
    QTRY_VERIFY2(field.width() >= text + frame, qPrintable(QString::number(field.width())));
}

void tst_GuideView::programmesFound_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("the beginning of a word, the earliest first")
        << u"ma"_s << QStringList{u"Two: Match"_s, u"One: Match"_s};
    QTest::newRow("what runs") << u"film"_s << QStringList{u"Two: Film"_s};
    QTest::newRow("not what is over") << u"old"_s << QStringList();
    QTest::newRow("blanks") << u"  "_s << QStringList();
}

void tst_GuideView::programmesFound()
{
    QFETCH(QString, query);
    QFETCH(QStringList, expected);
    const auto &list = part<QTableWidget>(u"guideSearchList"_s);
    type(u"running"_s);
    QTRY_COMPARE(found(), QStringList{u"One: Running"_s});
    QVERIFY(list.isVisible());
    QVERIFY(!view->grid().isVisible());
    type(query);
    QTRY_COMPARE(found(), expected);
    if (!expected.isEmpty() && query == u"ma"_s) {
        QCOMPARE(list.item(0, 0)->text(),
                 whenText(fixture->at(6), fixture->now, QTimeZone::systemTimeZone()));
    }
}

void tst_GuideView::onlyTheLatestSearchCounts()
{
    type(u"film"_s);
    type(u"news"_s);
    QTRY_COMPARE(found(), QStringList{u"Two: News"_s});
    type(u"film"_s);
    type(QString());
    // Answers come in the order of the questions: this one after that of the search.
    bool answered = false;
    fixture->guide.fetchTitles({}, 0, 1, [&answered](const auto &) { answered = true; });
    QTRY_VERIFY(answered);
    QCOMPARE(found(), QStringList());
    QVERIFY(view->grid().isVisible());
}

void tst_GuideView::choosing_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("way");
    QTest::addColumn<QString>("programme");
    for (const auto &way : {u"the field"_s, u"the list"_s, u"the mouse"_s}) {
        QTest::newRow(qPrintable(u"what runs, by "_s + way)) << u"film"_s << way << QString();
        QTest::newRow(qPrintable(u"what is to come, by "_s + way)) << u"news"_s << way << u"News"_s;
    }
}

void tst_GuideView::choosing()
{
    QFETCH(QString, query);
    QFETCH(QString, way);
    QFETCH(QString, programme);
    QSignalSpy entries(view.get(), &GuideView::foundEntryActivated);
    QSignalSpy others(view.get(), &GuideView::scheduleRequested);
    type(query);
    QTRY_COMPARE(found().size(), 1);
    auto &list = part<QTableWidget>(u"guideSearchList"_s);
    auto &field = part<QLineEdit>(u"guideSearch"_s);
    if (way == u"the mouse"_s) {
        const QPoint place = list.visualItemRect(list.item(0, 1)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    } else {
        QWidget &focused = way == u"the list"_s ? static_cast<QWidget &>(list) : field;
        focused.setFocus();
        QTest::keyClick(&focused, Qt::Key_Return);
    }
    QCOMPARE(entries.count() + others.count(), 1);
    const QList<QVariant> signal = others.isEmpty() ? entries.first() : others.first();
    QCOMPARE(signal.at(0).toString(), QString(fixture->items.at(1).id));
    QCOMPARE(signal.size() > 1 ? signal.at(1).value<GuideProgramme>().title : QString(), programme);
}

void tst_GuideView::nothingFound()
{
    QSignalSpy entries(view.get(), &GuideView::foundEntryActivated);
    type(u"zzz"_s);
    QTRY_COMPARE(text(u"guideStrip"_s), u"No programme found."_s);
    QTest::keyClick(&part<QLineEdit>(u"guideSearch"_s), Qt::Key_Return);
    QCOMPARE(entries.count(), 0);
    type(u"film"_s);
    QTRY_COMPARE(text(u"guideStrip"_s), QString());
}

void tst_GuideView::escape()
{
    for (const QString &name : {u"guideSearch"_s, u"guideSearchList"_s}) {
        type(u"film"_s);
        QTRY_COMPARE(found().size(), 1);
        part<QWidget>(name).setFocus();
        QTest::keyClick(&part<QWidget>(name), Qt::Key_Escape);
        QCOMPARE(part<QLineEdit>(u"guideSearch"_s).text(), QString());
        QVERIFY(view->grid().isVisible());
    }
    QVERIFY(view->grid().hasFocus());
    QTRY_COMPARE(text(u"guideDescription"_s), u"About Running"_s);
}

void tst_GuideView::otherContents()
{
    type(u"film"_s);
    QTRY_COMPARE(found().size(), 1);
    fixture->stored.clearGuide();
    fixture->stored.addChannel(u"one"_s, u"1"_s);
    fixture->programme("one", 5, 6, "Another film");
    fixture->store();
    fixture->guide.reload();
    QTRY_COMPARE(found(), QStringList{u"One: Another film"_s});
    view->setGuide(nullptr);
    QCOMPARE(found(), QStringList());
}

void tst_GuideView::takenBackWhileItSearches()
{
    type(u"film"_s);
    QTRY_COMPARE(found().size(), 1);
    view->setGuide(nullptr);
    QCOMPARE(part<QLineEdit>(u"guideSearch"_s).text(), QString());
    QCOMPARE(text(u"guideStrip"_s), QString());
    QCOMPARE(text(u"guideDescription"_s), QString());
}

void tst_GuideView::searchingWithoutAGuide()
{
    view = std::make_unique<GuideView>();
    type(u"film"_s);
    QCOMPARE(found(), QStringList());
    view->setGuide(&fixture->guide);
    type(u"film"_s);
    QTRY_COMPARE(found(), QStringList{u"Two: Film"_s});
}

/// Without a guide the days begin today; this guide has as many, with those of an archive.
void tst_GuideView::asManyOtherDays()
{
    constexpr int shownWithout = 8;
    constexpr int hoursOfDays = 4 * 24;
    fixture->programme("two", hoursOfDays, hoursOfDays + 1, "Last");
    fixture->store();
    fixture->guide.reload();
    const auto &combo = part<QComboBox>(u"guideDayCombo"_s);
    const QDate today = QDate::currentDate();
    QTRY_COMPARE(combo.count(), shownWithout);
    QTRY_COMPARE(combo.itemData(0).toDate(), today.addDays(-3));
    view->setGuide(nullptr);
    QCOMPARE(combo.count(), shownWithout);
    QCOMPARE(combo.itemData(0).toDate(), today);
    QCOMPARE(combo.currentText(), u"Today"_s);
}

VANTIRO_TEST_MAIN(tst_GuideView)
#include "tst_GuideView.moc"
