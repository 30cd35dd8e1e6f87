#include "guide/Guide.h"
#include "guide/StoredGuide.h"
#include "support/TestMain.h"
#include "ui/GuideChannelDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include <memory>

using namespace Qt::StringLiterals;

// Setting a channel's guide by hand, from a stored guide.

namespace {

using Rule = GuideMatch::Rule;

const LibraryEntry channel{u"Mine"_s, EntryKind::Channel, u"http://h/1.ts"_s, u"News HD"_s,
                           u"c1"_s};

} // namespace

Q_DECLARE_METATYPE(GuideMatch)
Q_DECLARE_METATYPE(std::optional<GuideCorrection>)

class tst_GuideChannelDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void matchIsTold_data();
    void matchIsTold();
    void suggestionIsConfirmed();
    void suggestionIsConfirmedBesideOthers();
    void suggestionIsConfirmedOutOfSight();
    void correctionComesBack_data();
    void correctionComesBack();
    void channelIsChosenFromTheList();
    void channelIsChosenByKeys();
    void clickOnThePresentMatchChoosesIt();
    void noGuide();
    void correctionIsTakenBack();
    void nothingFound();
    void neverTheWholeGuide();
    void followsAnotherGuide();
    void closesWhileItAsks();

private:
    void make(const GuideMatch &match = {},
              const std::optional<GuideCorrection> &correction = std::nullopt)
    {
        dialog =
            std::make_unique<GuideChannelDialog>(guide.get(), channel, match, correction, nullptr);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    }
    template <typename Widget>
    Widget &find(const QString &name) const
    {
        return *dialog->findChild<Widget *>(name);
    }
    QListWidget &list() const { return find<QListWidget>(u"guideChannels"_s); }
    QLineEdit &search() const { return find<QLineEdit>(u"guideChannelSearch"_s); }
    QStringList shown() const
    {
        QStringList texts;
        for (int row = 0; row < list().count(); ++row)
            texts << list().item(row)->text();
        return texts;
    }
    QString note() const { return find<QLabel>(u"guideChannelNote"_s).text(); }
    QPushButton &ok() const
    {
        return *dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
    }
    void type(const QString &text)
    {
        search().setFocus();
        search().selectAll();
        QTest::keyClicks(&search(), text);
    }

    StoredGuide stored;
    StoredGuide large;
    std::unique_ptr<Guide> guide;
    std::unique_ptr<GuideChannelDialog> dialog;
};

void tst_GuideChannelDialog::initTestCase()
{
    for (StoredGuide *made : {&stored, &large}) {
        made->addEntry(channel.id, channel.name, u"tvg-id=\"news.one\""_s);
        made->addProgramme(u"news.one"_s, StoredGuide::now, 0, u"News"_s);
    }
    stored.addChannel(u"news.one"_s, u"News One"_s);
    stored.addChannel(u"news.two"_s, u"News Two"_s);
    stored.addChannel(u"sport"_s, u"sport"_s);
    QCOMPARE(stored.store().matched, 1);
    large.addChannel(u"news.one"_s, u"News One"_s);
    for (int number = 0; number < 150; ++number)
        large.addChannel(u"id%1"_s.arg(number), u"Number %1"_s.arg(number, 3, 10, QChar(u'0')));
    QCOMPARE(large.store().matched, 1);
}

void tst_GuideChannelDialog::init()
{
    guide = std::make_unique<Guide>(nullptr);
    guide->open(stored.path(), 0);
}

void tst_GuideChannelDialog::cleanup()
{
    dialog.reset();
    guide.reset();
}

void tst_GuideChannelDialog::matchIsTold_data()
{
    QTest::addColumn<GuideMatch>("match");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << GuideMatch() << QString();
    QTest::newRow("chosen by the user") << GuideMatch{u"news.one"_s, Rule::Chosen} << QString();
    QTest::newRow("id") << GuideMatch{u"news.one"_s, Rule::Id}
                        << u"Found by the id that the source names: news.one"_s;
    QTest::newRow("name in the guide")
        << GuideMatch{u"news.one"_s, Rule::GuideName}
        << u"Found by the name that the source gives for the guide: news.one"_s;
    QTest::newRow("name") << GuideMatch{u"news.one"_s, Rule::ChannelName}
                          << u"Found by the channel's name: news.one"_s;
    QTest::newRow("suggestion") << GuideMatch{u"news.one"_s, Rule::Suggestion}
                                << u"Suggested, since the names are alike: news.one"_s;
}

void tst_GuideChannelDialog::matchIsTold()
{
    QFETCH(const GuideMatch, match);
    QFETCH(const QString, text);
    make(match);
    QCOMPARE(find<QLabel>(u"presentMatch"_s).text(), text);
    QCOMPARE(find<QPushButton>(u"confirmSuggestion"_s).isVisible(), match.rule == Rule::Suggestion);
    QVERIFY(find<QRadioButton>(u"automaticGuide"_s).isChecked());
    QVERIFY2(!dialog->correction(), "looking changes nothing");
    if (!match.id.isEmpty())
        QTRY_COMPARE(shown(), QStringList{u"News One (news.one)"_s});
    QVERIFY(!dialog->correction());
}

void tst_GuideChannelDialog::suggestionIsConfirmed()
{
    make({u"news.two"_s, Rule::Suggestion});
    find<QPushButton>(u"confirmSuggestion"_s).click();
    QCOMPARE(dialog->result(), int(QDialog::Accepted));
    QCOMPARE(dialog->correction(), (GuideCorrection{channel, u"news.two"_s}));
}

/// Whatever else was looked at.
void tst_GuideChannelDialog::suggestionIsConfirmedBesideOthers()
{
    make({u"news.two"_s, Rule::Suggestion});
    type(u"news"_s);
    QTRY_COMPARE(list().count(), 2);
    list().setCurrentRow(0);
    QCOMPARE(dialog->correction(), (GuideCorrection{channel, u"news.one"_s}));
    find<QPushButton>(u"confirmSuggestion"_s).click();
    QCOMPARE(dialog->result(), int(QDialog::Accepted));
    QCOMPARE(dialog->correction(), (GuideCorrection{channel, u"news.two"_s}));
}

void tst_GuideChannelDialog::suggestionIsConfirmedOutOfSight()
{
    make({u"news.two"_s, Rule::Suggestion});
    QTRY_COMPARE(list().count(), 1);
    type(u"nothing is called this"_s);
    QTRY_COMPARE(list().count(), 0);
    find<QPushButton>(u"confirmSuggestion"_s).click();
    QCOMPARE(dialog->correction(), (GuideCorrection{channel, u"news.two"_s}));
}

void tst_GuideChannelDialog::correctionComesBack_data()
{
    QTest::addColumn<std::optional<GuideCorrection>>("correction");
    using Correction = std::optional<GuideCorrection>;
    QTest::newRow("none") << Correction();
    QTest::newRow("no guide") << Correction({channel, {}});
    QTest::newRow("another channel") << Correction({channel, u"news.two"_s});
}

void tst_GuideChannelDialog::correctionComesBack()
{
    QFETCH(const std::optional<GuideCorrection>, correction);
    make({u"news.one"_s, Rule::Id}, correction);
    QTRY_VERIFY(ok().isEnabled());
    QCOMPARE(dialog->correction(), correction);
    QVERIFY2(correction || !find<QLabel>(u"presentMatch"_s).text().isEmpty(),
             "what is found by itself counts without a correction");
    QCOMPARE(find<QLabel>(u"presentMatch"_s).isVisible(), !correction);
}

void tst_GuideChannelDialog::channelIsChosenFromTheList()
{
    make();
    type(u"NEWS"_s);
    QTRY_COMPARE(shown(), (QStringList{u"News One (news.one)"_s, u"News Two (news.two)"_s}));
    QVERIFY(find<QRadioButton>(u"chosenGuide"_s).isChecked());
    QVERIFY2(!ok().isEnabled(), "none is chosen yet");
    list().setCurrentRow(1);
    QVERIFY(ok().isEnabled());
    QCOMPARE(dialog->correction(), (GuideCorrection{channel, u"news.two"_s}));
    type(u"sport"_s);
    QTRY_COMPARE(shown(), QStringList{u"sport"_s});
    QVERIFY2(!ok().isEnabled(), "what is not shown is not chosen");
}

void tst_GuideChannelDialog::channelIsChosenByKeys()
{
    make();
    type(u"news"_s);
    QTRY_COMPARE(list().count(), 2);
    QTest::keyClick(&search(), Qt::Key_Down);
    QVERIFY(list().hasFocus());
    QVERIFY(list().item(0)->isSelected());
    QTest::keyClick(&list(), Qt::Key_Down);
    // What is chosen stays so when the list gets the focus again.
    search().setFocus();
    QTest::keyClick(&search(), Qt::Key_Down);
    QVERIFY(list().hasFocus());
    QVERIFY(list().item(1)->isSelected());
    QTest::keyClick(&list(), Qt::Key_Return);
    QCOMPARE(dialog->result(), int(QDialog::Accepted));
    QCOMPARE(dialog->correction(), (GuideCorrection{channel, u"news.two"_s}));
}

void tst_GuideChannelDialog::clickOnThePresentMatchChoosesIt()
{
    make({u"news.one"_s, Rule::ChannelName});
    QTRY_COMPARE(list().count(), 1);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                      list().visualItemRect(list().item(0)).center());
    QCOMPARE(dialog->correction(), (GuideCorrection{channel, u"news.one"_s}));
}

void tst_GuideChannelDialog::noGuide()
{
    make({u"news.one"_s, Rule::Id});
    find<QRadioButton>(u"noGuide"_s).click();
    QVERIFY(ok().isEnabled());
    QCOMPARE(dialog->correction(), (GuideCorrection{channel, {}}));
}

void tst_GuideChannelDialog::correctionIsTakenBack()
{
    make({}, GuideCorrection{channel, u"news.two"_s});
    find<QRadioButton>(u"automaticGuide"_s).click();
    QVERIFY(ok().isEnabled());
    QVERIFY(!dialog->correction());
}

void tst_GuideChannelDialog::nothingFound()
{
    make();
    QTRY_COMPARE(note(), u"No channel of the guide contains this text."_s);
    QCOMPARE(search().text(), channel.name);
    type(u"sport"_s);
    QTRY_COMPARE(shown(), QStringList{u"sport"_s});
    QCOMPARE(note(), QString());
}

void tst_GuideChannelDialog::neverTheWholeGuide()
{
    guide->open(large.path(), 0);
    make();
    type(u"number"_s);
    QTRY_COMPARE(list().count(), GuideChannelDialog::mostShown);
    QTRY_COMPARE(note(), u"Only the first 100 are shown. Type more of the name."_s);
    type(u"number 14"_s);
    QTRY_COMPARE(list().count(), 10);
    QCOMPARE(note(), QString());
}

void tst_GuideChannelDialog::followsAnotherGuide()
{
    make();
    type(u"news"_s);
    QTRY_COMPARE(list().count(), 2);
    guide->open(large.path(), 0);
    QTRY_COMPARE(shown(), QStringList{u"News One (news.one)"_s});
}

void tst_GuideChannelDialog::closesWhileItAsks()
{
    make();
    type(u"news"_s);
    dialog.reset();
    // Answers come in the order of the questions.
    bool answered = false;
    guide->fetchChannels({}, 1, [&answered](const auto &) { answered = true; });
    QTRY_VERIFY(answered);
}

VANTIRO_TEST_MAIN(tst_GuideChannelDialog)
#include "tst_GuideChannelDialog.moc"
