#include "support/TestMain.h"
#include "ui/GuideTexts.h"

#include <QDateTime>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

/// 2026-11-22 20:15 in UTC, a Sunday.
constexpr qint64 sunday = 1'795'378'500;
constexpr qint64 day = 24LL * 3600;

const QLocale english(QLocale::English, QLocale::UnitedKingdom);

} // namespace

class tst_GuideTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QLocale::setDefault(english); }
    void clocks_data();
    void clocks();
    void spans();
    void days_data();
    void days();
    void when_data();
    void when();
};

void tst_GuideTexts::clocks_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("text");
    QTest::newRow("British") << english << u"20:15"_s;
    QTest::newRow("American") << QLocale(QLocale::English, QLocale::UnitedStates)
                              << QLocale(QLocale::English, QLocale::UnitedStates)
                                     .toString(QTime(20, 15), QLocale::ShortFormat);
    QTest::newRow("C, which would have seconds") << QLocale::c() << u"20:15"_s;
}

void tst_GuideTexts::clocks()
{
    QFETCH(QLocale, locale);
    QLocale::setDefault(locale);
    QTEST(clockText(sunday, QTimeZone::utc()), "text");
    QVERIFY(clockText(sunday, QTimeZone(3600)) != clockText(sunday, QTimeZone::utc()));
}

void tst_GuideTexts::spans()
{
    const GuideProgramme programme{sunday, sunday + 5400, QString(), QString()};
    QCOMPARE(spanText(programme, QTimeZone::utc()), u"20:15 - 21:45"_s);
}

void tst_GuideTexts::days_data()
{
    QTest::addColumn<int>("ahead");
    QTest::addColumn<QString>("text");
    QTest::newRow("yesterday") << -1 << u"Yesterday"_s;
    QTest::newRow("today") << 0 << u"Today"_s;
    QTest::newRow("tomorrow") << 1 << u"Tomorrow"_s;
    QTest::newRow("later") << 2 << u"Tue 24/11/2026"_s;
}

void tst_GuideTexts::days()
{
    QFETCH(int, ahead);
    const QDate today(2026, 11, 22);
    QTEST(dayText(today.addDays(ahead), today), "text");
}

void tst_GuideTexts::when_data()
{
    QTest::addColumn<qint64>("time");
    QTest::addColumn<QString>("text");
    QTest::newRow("earlier") << sunday - 2 * day << u"20/11/2026 20:15"_s;
    QTest::newRow("yesterday") << sunday - day << u"Yesterday 20:15"_s;
    QTest::newRow("today") << sunday << u"Today 20:15"_s;
    QTest::newRow("in four hours, after midnight") << sunday + 4LL * 3600 << u"Tomorrow 00:15"_s;
    QTest::newRow("in three days") << sunday + 3 * day << u"Wednesday 20:15"_s;
    QTest::newRow("in six days") << sunday + 6 * day << u"Saturday 20:15"_s;
    QTest::newRow("in a week") << sunday + 7 * day << u"29/11/2026 20:15"_s;
}

void tst_GuideTexts::when()
{
    QFETCH(qint64, time);
    QTEST(whenText(time, sunday, QTimeZone::utc()), "text");
}

VANTIRO_TEST_GUILESS_MAIN(tst_GuideTexts)
#include "tst_GuideTexts.moc"
