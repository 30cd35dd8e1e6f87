#include "DialogAnswers.h"
#include "GuideDialogFixture.h"
#include "support/TestFiles.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>

// The settings of a guide as the user changes them.

class tst_GuideDialog : public QObject, private GuideDialogFixture
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { dialog.reset(); }

    void settingsComeBackAsTheyWere();
    void everythingCanBeChanged();
    void offsets_data();
    void offsets();

    void ownGuideIsFilledIn_data();
    void ownGuideIsFilledIn();
    void whatWasRemovedStaysAway();
    void addressesAreAdded();
    void addressesAreEdited();
    void ownAddressesAreAddedOnce();
    void filesAreAdded();
    void orderOfPreference();
    void removing();

private:
    QListWidget &list() const { return find<QListWidget>(u"guideAddresses"_s); }
    QStringList shown() const
    {
        QStringList texts;
        for (int row = 0; row < list().count(); ++row)
            texts << list().item(row)->text();
        return texts;
    }
    QString addresses() const { return dialog->settings().addresses; }
    /// Types into the line that is being written.
    void type(const QString &text, Qt::Key end)
    {
        auto *editor = list().findChild<QLineEdit *>();
        QVERIFY(editor != nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, end);
        QTRY_VERIFY(list().findChild<QLineEdit *>() == nullptr);
    }

    DialogAnswers answers;
};

void tst_GuideDialog::settingsComeBackAsTheyWere()
{
    GuideSettings settings = stored(u"http://h/1.xml\naccount\n/home/me/guide.xml"_s);
    settings.offsetSeconds = -5400;
    settings.refresh = false;
    make(settings, true);
    QCOMPARE(dialog->settings(), settings);
    QCOMPARE(shown(), (QStringList{u"http://h/1.xml"_s, u"The account's own guide"_s,
                                   u"/home/me/guide.xml"_s}));

    make(stored({}, false), true);
    QCOMPARE(dialog->settings(), stored({}, false));
    QVERIFY(!list().isEnabled());
}

void tst_GuideDialog::everythingCanBeChanged()
{
    make(stored({}, false), true);
    find<QCheckBox>(u"guideEnabled"_s).click();
    find<QDoubleSpinBox>(u"guideOffset"_s).stepUp();
    find<QCheckBox>(u"guideRefresh"_s).click();
    const GuideSettings settings = dialog->settings();
    QVERIFY(settings.enabled);
    QCOMPARE(settings.offsetSeconds, 1800);
    QVERIFY(!settings.refresh);
    QCOMPARE(settings.archiveForm, 2);
}

void tst_GuideDialog::offsets_data()
{
    QTest::addColumn<qint64>("seconds");
    QTest::addColumn<double>("hours");
    QTest::addColumn<qint64>("result");
    QTest::newRow("none") << qint64(0) << 0.0 << qint64(0);
    QTest::newRow("half an hour back") << qint64(-1800) << -0.5 << qint64(-1800);
    QTest::newRow("a day") << qint64(86'400) << 24.0 << qint64(86'400);
    QTest::newRow("more than a day") << qint64(-200'000) << -24.0 << qint64(-86'400);
    QTest::newRow("between the steps") << qint64(2000) << 0.6 << qint64(1800);
}

void tst_GuideDialog::offsets()
{
    QFETCH(const qint64, seconds);
    QFETCH(const double, hours);
    QFETCH(const qint64, result);
    GuideSettings settings = stored();
    settings.offsetSeconds = seconds;
    make(settings);
    QCOMPARE(find<QDoubleSpinBox>(u"guideOffset"_s).value(), hours);
    QCOMPARE(dialog->settings().offsetSeconds, result);
}

// ---- addresses ----

void tst_GuideDialog::ownGuideIsFilledIn_data()
{
    QTest::addColumn<bool>("isAccount");
    QTest::addColumn<QStringList>("playlist"); ///< the addresses that it names
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("filledIn");
    QTest::addColumn<bool>("canAdd"); ///< afterwards
    const QStringList two{u"http://h/1.xml"_s, u"http://h/2.xml"_s};
    QTest::newRow("an account") << true << QStringList() << QString() << account << false;
    QTest::newRow("an account with other guides")
        << true << QStringList() << u"http://h/1.xml"_s << u"http://h/1.xml"_s << true;
    QTest::newRow("a playlist") << false << two << QString() << two.join(u'\n') << false;
    QTest::newRow("a playlist with one of them") << false << two << two.at(1) << two.at(1) << true;
    QTest::newRow("a playlist that names none")
        << false << QStringList() << QString() << QString() << false;
}

void tst_GuideDialog::ownGuideIsFilledIn()
{
    QFETCH(const bool, isAccount);
    QFETCH(const QStringList, playlist);
    QFETCH(const QString, before);
    QFETCH(const QString, filledIn);
    QFETCH(const bool, canAdd);
    for (const bool offeredFirst : {false, true}) {
        make(stored(before, false), isAccount);
        if (offeredFirst && !isAccount)
            dialog->offerPlaylistAddresses(playlist);
        QVERIFY2(addresses() == before, "nothing is stored while there is no guide");
        find<QCheckBox>(u"guideEnabled"_s).click();
        if (!offeredFirst && !isAccount)
            dialog->offerPlaylistAddresses(playlist);
        QCOMPARE(addresses(), filledIn);
        QCOMPARE(button(u"addOwnGuide"_s).isEnabled(), canAdd);
        QCOMPARE(button(u"addOwnGuide"_s).isVisible(), isAccount || !playlist.isEmpty());
        QCOMPARE(button(u"addOwnGuide"_s).text(),
                 isAccount ? u"Add Account's Guide"_s : u"Add Playlist's Guide"_s);
    }
}

void tst_GuideDialog::ownAddressesAreAddedOnce()
{
    make(stored(u"http://h/a\n\nhttp://h/c"_s), false);
    dialog->offerPlaylistAddresses({u"http://h/a"_s, u"http://h/b"_s});
    QCOMPARE(addresses(), u"http://h/a\nhttp://h/c"_s);
    button(u"addOwnGuide"_s).click();
    QCOMPARE(addresses(), u"http://h/a\nhttp://h/c\nhttp://h/b"_s);
}

void tst_GuideDialog::whatWasRemovedStaysAway()
{
    make(stored(account), true);
    button(u"removeGuide"_s).click();
    QCOMPARE(addresses(), QString());
    QVERIFY(!button(u"removeGuide"_s).isEnabled());
    button(u"addOwnGuide"_s).click();
    QCOMPARE(addresses(), account);
}

void tst_GuideDialog::addressesAreAdded()
{
    make(stored(account), true);
    button(u"addGuideAddress"_s).click();
    type(u" http://h/1.xml "_s, Qt::Key_Return);
    QCOMPARE(addresses(), u"account\nhttp://h/1.xml"_s);
    button(u"addGuideAddress"_s).click();
    type(u"http://h/2.xml"_s, Qt::Key_Escape);
    QTRY_COMPARE(list().count(), 2);
    button(u"addGuideAddress"_s).click();
    type(u"http://h/1.xml"_s, Qt::Key_Return);
    QVERIFY2(addresses() == u"account\nhttp://h/1.xml"_s, "each address counts once");
    QVERIFY2(dialog->isVisible(), "the keys are for the line");
}

void tst_GuideDialog::addressesAreEdited()
{
    make(stored(u"account\nhttp://h/1.xml"_s), true);
    list().setCurrentRow(1);
    list().editItem(list().item(1));
    type(u"http://h/2.xml"_s, Qt::Key_Return);
    QCOMPARE(addresses(), u"account\nhttp://h/2.xml"_s);
    QVERIFY2(!(list().item(0)->flags() & Qt::ItemIsEditable), "it is no address");
}

void tst_GuideDialog::filesAreAdded()
{
    const QString file = PrivateProfile::current().root() + u"/my guide.xml.gz"_s;
    writeFile(file, "x");
    make(stored(account), true);
    answers.next([&file](QDialog &opened) {
        auto &chooser = dynamic_cast<QFileDialog &>(opened);
        chooser.selectFile(file);
        opened.accept();
    });
    button(u"addGuideFile"_s).click();
    QCOMPARE(addresses(), account + u'\n' + file);
    button(u"addGuideFile"_s).click(); // and no answer, which cancels it
    QCOMPARE(addresses(), account + u'\n' + file);
}

void tst_GuideDialog::orderOfPreference()
{
    make(stored(u"a\nb\nc"_s));
    QPushButton &up = button(u"moveGuideUp"_s);
    QPushButton &down = button(u"moveGuideDown"_s);
    QVERIFY(!up.isEnabled());
    down.click();
    QCOMPARE(addresses(), u"b\na\nc"_s);
    QVERIFY(up.isEnabled());
    down.click();
    QCOMPARE(addresses(), u"b\nc\na"_s);
    QVERIFY(!down.isEnabled());
    up.click();
    QCOMPARE(addresses(), u"b\na\nc"_s);
    QCOMPARE(list().currentRow(), 1);
}

void tst_GuideDialog::removing()
{
    make(stored(u"a\nb\nc"_s));
    list().setCurrentRow(1);
    button(u"removeGuide"_s).click();
    QCOMPARE(addresses(), u"a\nc"_s);
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Delete);
    QCOMPARE(list().count(), 1);
}

VANTIRO_TEST_MAIN(tst_GuideDialog)
#include "tst_GuideDialog.moc"
