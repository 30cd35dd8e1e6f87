#include "support/TestMain.h"
#include "ui/LoadingOverlay.h"

#include <QLabel>

using namespace Qt::StringLiterals;

class tst_LoadingOverlay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lookAndSize();
    void showsWhileStepsAreOutstanding_data();
    void showsWhileStepsAreOutstanding();
};

void tst_LoadingOverlay::lookAndSize()
{
    QWidget covered;
    covered.resize(300, 200);
    LoadingOverlay overlay(&covered);
    QCOMPARE(overlay.parentWidget(), &covered);
    QCOMPARE(overlay.geometry(), covered.rect());
    QVERIFY(overlay.isHidden());
    QVERIFY(overlay.autoFillBackground());
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(overlay.palette().color(group, QPalette::Window), QColor(0, 0, 0, 150));
    }
    const auto *label = overlay.findChild<QLabel *>();
    QCOMPARE(label->text(), u"Loading..."_s);
    QCOMPARE(label->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
    QCOMPARE(label->styleSheet(), u"color: white; font-size: 14pt;"_s);

    // It takes the size when a load begins.
    auto *sibling = new QWidget(&covered);
    overlay.beginCatalogFetch(1);
    QCOMPARE(covered.children().last(), &overlay); // raised above its siblings
    QCOMPARE(covered.children().first(), sibling);
    covered.resize(600, 400);
    QCOMPARE(overlay.geometry(), QRect(0, 0, 300, 200));
    overlay.beginCatalogFetch(1);
    QCOMPARE(overlay.geometry(), QRect(0, 0, 600, 400));
    covered.resize(500, 300);
    overlay.fit();
    QCOMPARE(overlay.geometry(), QRect(0, 0, 500, 300));
}

void tst_LoadingOverlay::showsWhileStepsAreOutstanding_data()
{
    // A number above zero begins that many steps, -1 finishes one.
    QTest::addColumn<QList<int>>("calls");
    QTest::addColumn<QList<bool>>("shown");
    QTest::newRow("overlapping loads")
        << QList{1, 2, -1, -1, 1, -1, -1} << QList{true, true, true, true, true, true, false};
    QTest::newRow("more completions than steps")
        << QList{-1, -1, 1, -1, -1, 1} << QList{false, false, true, false, false, true};
    QTest::newRow("no steps") << QList{0} << QList{false};
}

void tst_LoadingOverlay::showsWhileStepsAreOutstanding()
{
    QFETCH(const QList<int>, calls);
    QWidget covered;
    LoadingOverlay overlay(&covered);
    QList<bool> seen;
    for (const int call : calls) {
        call < 0 ? overlay.catalogFetchStepDone() : overlay.beginCatalogFetch(call);
        seen << !overlay.isHidden();
    }
    QTEST(seen, "shown");
}

VANTIRO_TEST_MAIN(tst_LoadingOverlay)
#include "tst_LoadingOverlay.moc"
