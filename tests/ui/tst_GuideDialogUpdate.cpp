#include "GuideDialogFixture.h"
#include "guide/GuideResult.h"

#include <QCheckBox>
#include <QDateTime>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QSignalSpy>

// The update that the dialog of a guide asks for, and what is told of it.

Q_DECLARE_METATYPE(GuideProblem)

class tst_GuideDialogUpdate : public QObject, private GuideDialogFixture
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { dialog.reset(); }

    void updating();
    void progress();
    void nothingToUpdate();

    void resultOfAnUpdate();
    void suggestionsAreToldApart();
    void cancelledUpdate();
    void noUpdateYet();
    void problems_data();
    void problems();

private:
    QString result() const { return find<QLabel>(u"guideResult"_s).text(); }
};

void tst_GuideDialogUpdate::updating()
{
    make(stored(account), true);
    QPushButton &update = button(u"updateGuide"_s);
    QPushButton &cancel = button(u"cancelGuideUpdate"_s);
    QSignalSpy updates(dialog.get(), &GuideDialog::updateRequested);
    QSignalSpy cancels(dialog.get(), &GuideDialog::cancelRequested);
    QVERIFY(!cancel.isVisible());
    find<QDoubleSpinBox>(u"guideOffset"_s).stepUp();
    update.setFocus();
    update.click();
    QCOMPARE(updates.size(), 1);
    QCOMPARE(updates.at(0).at(0).value<GuideSettings>(), dialog->settings());
    QCOMPARE(dialog->settings().offsetSeconds, 1800);

    dialog->setUpdating(true);
    QVERIFY(!update.isEnabled());
    QVERIFY(find<QProgressBar>(u"guideProgress"_s).isVisible());
    QVERIFY2(cancel.hasFocus(), "the key that began it cancels it");
    cancel.click();
    QCOMPARE(cancels.size(), 1);

    dialog->setUpdating(false);
    QVERIFY(update.isEnabled());
    QVERIFY(update.hasFocus());
    QVERIFY(!cancel.isVisible());
    QVERIFY(!find<QProgressBar>(u"guideProgress"_s).isVisible());
    QCOMPARE(updates.size(), 1);
}

void tst_GuideDialogUpdate::progress()
{
    make(stored(account), true);
    const auto &bar = find<QProgressBar>(u"guideProgress"_s);
    dialog->setUpdating(true);
    QCOMPARE(bar.maximum(), 0); // busy
    dialog->setProgress(40);
    QCOMPARE(bar.maximum(), 100);
    QCOMPARE(bar.value(), 40);
    dialog->setProgress(-1);
    QCOMPARE(bar.maximum(), 0);
}

void tst_GuideDialogUpdate::nothingToUpdate()
{
    make(stored(account), true);
    QPushButton &update = button(u"updateGuide"_s);
    QVERIFY(update.isEnabled());
    button(u"removeGuide"_s).click();
    QVERIFY2(!update.isEnabled(), "there is no address");
    button(u"addOwnGuide"_s).click();
    find<QCheckBox>(u"guideEnabled"_s).click();
    QVERIFY2(!update.isEnabled(), "there is no guide");
}

// ---- what came of it ----

void tst_GuideDialogUpdate::resultOfAnUpdate()
{
    make(stored(account), true);
    GuideResult update;
    update.finishedAt = 1'772'388'000;
    update.newest = 1'772'474'400;
    update.programmes = 264'000;
    update.channels = 45'000;
    update.matched = 3000;
    update.addresses = {
        {account, GuideProblem::None, {}, 200'000, false},
        {u"http://h/x.xml?password=secret"_s, GuideProblem::None, {}, 64'000, true}};
    dialog->setResult(update);
    const QLocale locale;
    const auto time = [&locale](qint64 seconds) {
        return locale.toString(QDateTime::fromSecsSinceEpoch(seconds), QLocale::ShortFormat);
    };
    QCOMPARE(
        result().split(u'\n'),
        (QStringList{u"Last update: "_s + time(update.finishedAt),
                     u"Programmes: "_s + locale.toString(264'000),
                     u"Channels with a guide: "_s + locale.toString(3000) + u" of "_s +
                         locale.toString(45'000),
                     u"The last programme begins: "_s + time(update.newest),
                     u"The account's own guide: "_s + locale.toString(200'000) + u" programmes."_s,
                     u"http://h/x.xml?password=***: "_s + locale.toString(64'000) +
                         u" programmes. The time zone of some is not known; they may be "
                         "shown at the wrong hour."_s}));
    QVERIFY(find<QLabel>(u"guideResult"_s).isVisible());
    QCOMPARE(find<QLabel>(u"guideResult"_s).textFormat(), Qt::PlainText);
}

void tst_GuideDialogUpdate::suggestionsAreToldApart()
{
    make(stored(account), true);
    GuideResult update;
    update.finishedAt = 1;
    update.channels = 10;
    update.matched = 8;
    update.suggested = 3;
    dialog->setResult(update);
    QVERIFY2(result().contains("Channels with a guide: 8 of 10\nOf these, only suggested: 3."_L1),
             qPrintable(result()));
}

void tst_GuideDialogUpdate::cancelledUpdate()
{
    make(stored(account), true);
    GuideResult update;
    update.cancelled = true;
    update.addresses = {{account, GuideProblem::NotAGuide, {}, 0, false}}; // of the one before
    dialog->setResult(update);
    QCOMPARE(result(), u"The update was cancelled. The guide of the last update stays."_s);
}

void tst_GuideDialogUpdate::noUpdateYet()
{
    make(stored(account), true);
    QVERIFY(!find<QLabel>(u"guideResult"_s).isVisible());
}

void tst_GuideDialogUpdate::problems_data()
{
    QTest::addColumn<GuideProblem>("problem");
    QTest::addColumn<QString>("detail");
    QTest::addColumn<QString>("text"); ///< %1 is the address as it may be shown
    using Problem = GuideProblem;
    const QString url = u"http://h/g.xml?password=secret"_s;
    QTest::newRow("not reachable")
        << Problem::NotReachable << u"Error transferring %1 - server replied: Gone"_s.arg(url)
        << u"%1 cannot be reached: Error transferring %1 - server replied: Gone"_s;
    QTest::newRow("file") << Problem::FileNotOpened << u"No such file or directory"_s
                          << u"%1 cannot be opened: No such file or directory"_s;
    QTest::newRow("a page") << Problem::NotAGuide << QString()
                            << u"%1 is no guide. It may be a page or an error message."_s;
    QTest::newRow("packed otherwise")
        << Problem::UnknownPacking << QString()
        << u"%1 is packed in a form other than gzip, which cannot be read."_s;
    QTest::newRow("damaged") << Problem::Damaged << QString()
                             << u"%1 is damaged and cannot be unpacked."_s;
    QTest::newRow("cut short") << Problem::CutShort << QString()
                               << u"%1 ends early. It was not taken."_s;
    QTest::newRow("too large") << Problem::TooLarge << QString() << u"%1 is too large."_s;
    QTest::newRow("nothing matches") << Problem::NothingMatches << QString()
                                     << u"%1 has no programmes of the channels of this source."_s;
    QTest::newRow("not stored") << Problem::NotStored << u"disk full"_s
                                << u"%1 cannot be stored: disk full"_s;
    QTest::newRow("no channels")
        << Problem::ChannelsNotLoaded << u"HTTP 500"_s
        << u"What the source tells of its channels cannot be read: HTTP 500"_s;
}

void tst_GuideDialogUpdate::problems()
{
    QFETCH(const GuideProblem, problem);
    QFETCH(const QString, detail);
    QFETCH(QString, text);
    make(stored(account), true);
    GuideResult update;
    update.finishedAt = 1;
    update.addresses = {{u"http://h/g.xml?password=secret"_s, problem, detail, 0, false}};
    dialog->setResult(update);
    const QStringList lines = result().split(u'\n');
    QCOMPARE(lines.at(lines.size() - 2), text.replace("%1"_L1, "http://h/g.xml?password=***"_L1));
    QCOMPARE(lines.last(), u"The guide of the last update stays."_s);
    QVERIFY(!result().contains("secret"_L1));
}

VANTIRO_TEST_MAIN(tst_GuideDialogUpdate)
#include "tst_GuideDialogUpdate.moc"
