#include "DialogAnswers.h"
#include "guide/GuideResult.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"
#include "ui/GuideDialog.h"

#include <QCheckBox>
#include <QDateTime>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>

#include <memory>

using namespace Qt::StringLiterals;

// The settings of a guide as the user changes them, and what is told of an update.

namespace {

const QString account = u"account"_s;
const QString ownGuide = u"The account's own guide"_s;

GuideSettings stored(const QString &addresses = {}, bool enabled = true)
{
    GuideSettings settings;
    settings.source = u"<b>Mine</b>"_s;
    settings.enabled = enabled;
    settings.addresses = addresses;
    settings.archiveForm = 2;
    return settings;
}

} // namespace

Q_DECLARE_METATYPE(GuideProblem)

class tst_GuideDialog : public QObject
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
    void make(const GuideSettings &settings, bool isAccount = false)
    {
        dialog = std::make_unique<GuideDialog>(settings, isAccount, nullptr);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    }
    template <typename Widget>
    Widget &find(const QString &name) const
    {
        return *dialog->findChild<Widget *>(name);
    }
    QPushButton &button(const QString &name) const { return find<QPushButton>(name); }
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
    QString result() const { return find<QLabel>(u"guideResult"_s).text(); }

    std::unique_ptr<GuideDialog> dialog;
    DialogAnswers answers;
};

void tst_GuideDialog::settingsComeBackAsTheyWere()
{
    GuideSettings settings = stored(u"http://h/1.xml\naccount\n/home/me/guide.xml"_s);
    settings.offsetSeconds = -5400;
    settings.refresh = false;
    make(settings, true);
    QCOMPARE(dialog->settings(), settings);
    QCOMPARE(shown(), (QStringList{u"http://h/1.xml"_s, ownGuide, u"/home/me/guide.xml"_s}));

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

// ---- updating ----

void tst_GuideDialog::updating()
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

void tst_GuideDialog::progress()
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

void tst_GuideDialog::nothingToUpdate()
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

void tst_GuideDialog::resultOfAnUpdate()
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

void tst_GuideDialog::suggestionsAreToldApart()
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

void tst_GuideDialog::cancelledUpdate()
{
    make(stored(account), true);
    GuideResult update;
    update.cancelled = true;
    update.addresses = {{account, GuideProblem::NotAGuide, {}, 0, false}}; // of the one before
    dialog->setResult(update);
    QCOMPARE(result(), u"The update was cancelled. The guide of the last update stays."_s);
}

void tst_GuideDialog::noUpdateYet()
{
    make(stored(account), true);
    QVERIFY(!find<QLabel>(u"guideResult"_s).isVisible());
}

void tst_GuideDialog::problems_data()
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

void tst_GuideDialog::problems()
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

VANTIRO_TEST_MAIN(tst_GuideDialog)
#include "tst_GuideDialog.moc"
