#include "WindowFixture.h"
#include "ui/BrowseTab.h"
#include "ui/PlayerPanel.h"
#include "ui/SmallWindow.h"

#include <QCloseEvent>
#include <QScreen>
#include <QSettings>
#include <QSlider>
#include <QSplitter>

/// What the window remembers from one run to the next, on two screens.
class tst_MainWindowRemembered : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }
    void aFreshProfileStartsAsEver();
    void whoChangesNothingStoresNothing();
    void theArrangementComesBack();
    void fullscreenIsNotRemembered();
    void theSmallWindowIsNotRemembered();
    void closingAgainKeepsTheArrangement();
    void itIsStoredWhileTheProgramRuns();
    void aScreenThatIsGone();
    void maximizedWithoutAGeometry();
    void damagedSettingsDoNoHarm_data();
    void damagedSettingsDoNoHarm();

private:
    /// Another run on the same profile.
    void restart()
    {
        window().close();
        open();
    }
    QSplitter &splitter() const { return find<QSplitter>(u"splitter"_s); }
    QSlider &volume() const { return find<QSlider>(u"volumeSlider"_s); }
    QComboBox &sort(const QString &tab) const { return find<QComboBox>(tab + u"SortCombo"_s); }
    PlayerPanel &panel() const { return find<PlayerPanel>(u"playerPanel"_s); }
    static bool isStored() { return QSettings(u"Vantiro"_s, u"Window"_s).contains(u"volume"_s); }
};

void tst_MainWindowRemembered::aFreshProfileStartsAsEver()
{
    open();
    QCOMPARE(window().size(), QSize(1200, 750));
    QVERIFY(!window().isMaximized());
    QCOMPARE(volume().value(), 100);
    QCOMPARE(sort(u"movie"_s).currentIndex(), 0);
}

void tst_MainWindowRemembered::whoChangesNothingStoresNothing()
{
    open();
    restart();
    window().close();
    QVERIFY(!isStored());
}

void tst_MainWindowRemembered::theArrangementComesBack()
{
    open();
    auto &timer = find<QTimer>(u"rememberTimer"_s);
    QTRY_VERIFY(!timer.isActive());
    window().resize(1100, 700);
    window().move(1700, 120);
    splitter().setSizes({500, 588});
    volume().setValue(35);
    panel().setFocus();
    QTest::keyClick(&panel(), Qt::Key_M);
    sort(u"movie"_s).setCurrentIndex(2);
    sort(u"series"_s).setCurrentIndex(1);
    const QList<int> sizes = splitter().sizes();
    restart();
    QCOMPARE(window().size(), QSize(1100, 700));
    QCOMPARE(window().pos(), QPoint(1700, 120));
    QTRY_COMPARE(splitter().sizes(), sizes);
    QCOMPARE(volume().value(), 0);
    QCOMPARE(panel().volumeBeforeMute(), 35);
    QCOMPARE(sort(u"movie"_s).currentData(), u"rating"_s);
    QCOMPARE(sort(u"series"_s).currentData(), u"added"_s);

    window().showMaximized();
    QTRY_VERIFY(window().isMaximized());
    restart();
    QTRY_VERIFY(window().isMaximized());
}

void tst_MainWindowRemembered::fullscreenIsNotRemembered()
{
    open();
    auto &timer = find<QTimer>(u"rememberTimer"_s);
    QTRY_VERIFY(!timer.isActive());
    window().resize(1000, 650);
    window().toggleFullscreen();
    QTRY_VERIFY(window().isFullScreen());
    restart();
    QVERIFY(!window().isFullScreen());
    QCOMPARE(window().size(), QSize(1000, 650));
    QVERIFY(splitter().sizes().at(0) > 0);
}

void tst_MainWindowRemembered::theSmallWindowIsNotRemembered()
{
    open();
    auto &timer = find<QTimer>(u"rememberTimer"_s);
    QTRY_VERIFY(!timer.isActive());
    window().showMaximized();
    QTRY_VERIFY(window().isMaximized());
    window().findChild<SmallWindow *>()->toggle();
    QTRY_VERIFY(window().width() < 600);
    // Also of a program that is killed, and once the small window stores its volume.
    QVERIFY(QSettings(u"Vantiro"_s, u"Window"_s).value(u"maximized"_s).toBool());
    volume().setValue(45);
    QTRY_COMPARE(QSettings(u"Vantiro"_s, u"Window"_s).value(u"volume"_s).toInt(), 45);
    QVERIFY(QSettings(u"Vantiro"_s, u"Window"_s).value(u"maximized"_s).toBool());
    restart();
    QTRY_VERIFY(window().isMaximized());
    QVERIFY(tabs().isVisible());
}

void tst_MainWindowRemembered::closingAgainKeepsTheArrangement()
{
    open();
    auto &timer = find<QTimer>(u"rememberTimer"_s);
    QTRY_VERIFY(!timer.isActive());
    window().resize(1000, 650);
    QVERIFY(window().close());
    // The end of the session closes every window, also one that is gone from the screen.
    window().resize(300, 200);
    QCloseEvent again;
    QCoreApplication::sendEvent(&window(), &again);
    open();
    QCOMPARE(window().size(), QSize(1000, 650));
}

/// A program that is killed loses little.
void tst_MainWindowRemembered::itIsStoredWhileTheProgramRuns()
{
    open();
    auto &timer = find<QTimer>(u"rememberTimer"_s);
    QTRY_VERIFY(!timer.isActive());
    volume().setValue(40);
    QTRY_COMPARE(QSettings(u"Vantiro"_s, u"Window"_s).value(u"volume"_s).toInt(), 40);
}

void tst_MainWindowRemembered::aScreenThatIsGone()
{
    open();
    auto &timer = find<QTimer>(u"rememberTimer"_s);
    QTRY_VERIFY(!timer.isActive());
    window().resize(1000, 650);
    window().move(9000, 7000);
    restart();
    QCOMPARE(window().size(), QSize(1000, 650));
    QRect all;
    for (const QScreen *screen : QGuiApplication::screens()) {
        all |= screen->availableGeometry();
    }
    QVERIFY(all.contains(window().geometry()));
}

/// As much of it as can be read.
void tst_MainWindowRemembered::maximizedWithoutAGeometry()
{
    {
        QSettings settings(u"Vantiro"_s, u"Window"_s);
        settings.setValue(u"geometry"_s, QByteArray("junk"));
        settings.setValue(u"maximized"_s, true);
    }
    open();
    QTRY_VERIFY(window().isMaximized());
}

void tst_MainWindowRemembered::damagedSettingsDoNoHarm_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("no geometry") << u"geometry"_s << QVariant(QByteArray("junk"));
    QTest::newRow("a text for the splitter") << u"splitter"_s << QVariant(u"wide"_s);
    QTest::newRow("one part") << u"splitter"_s << QVariant(QVariantList{300});
    QTest::newRow("nothing of the splitter") << u"splitter"_s << QVariant(QVariantList{0, 0});
    QTest::newRow("negative parts") << u"splitter"_s << QVariant(QVariantList{-5, -9});
    QTest::newRow("too loud") << u"volume"_s << QVariant(900);
    QTest::newRow("no volume") << u"volume"_s << QVariant(u"loud"_s);
    QTest::newRow("nothing to bring back") << u"volumeBeforeMute"_s << QVariant(0);
    QTest::newRow("an unknown order") << u"sortOrders/movieTab"_s << QVariant(u"size"_s);
}

void tst_MainWindowRemembered::damagedSettingsDoNoHarm()
{
    QFETCH(const QString, key);
    QFETCH(const QVariant, value);
    {
        QSettings settings(u"Vantiro"_s, u"Window"_s);
        settings.setValue(u"geometry"_s, QByteArray());
        settings.setValue(key, value);
    }
    open();
    QCOMPARE(window().size(), QSize(1200, 750));
    QVERIFY(splitter().sizes().at(0) > 0);
    QVERIFY(splitter().sizes().at(1) > 0);
    QCOMPARE(volume().value(), 100);
    QCOMPARE(panel().volumeBeforeMute(), 100);
    QCOMPARE(sort(u"movie"_s).currentIndex(), 0);
}

VANTIRO_TEST_MAIN(tst_MainWindowRemembered)
#include "tst_MainWindowRemembered.moc"
