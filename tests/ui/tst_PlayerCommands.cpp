#include "PanelFixture.h"

#include "ui/PlayerCommands.h"
#include "ui/PlayerMenu.h"

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTimer>

#include <optional>

namespace {

/// A panel with the commands.
struct CommandFixture : PanelFixture
{
    CommandFixture()
    {
        addPlayerMenu(&panel, &commands, &player);
        window.resize(1000, 600); // a narrow picture shortens the line
    }

    /// What the line over the picture says; empty while it does not show.
    QString line() const
    {
        const auto *label = window.findChild<QLabel *>(u"pictureLine"_s);
        return label != nullptr && label->isVisible() ? label->text() : QString();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    PlayerCommands &commands = *new PlayerCommands(&panel, &player, &session);
};

/// What a command needs to play.
enum class Needs
{
    Nothing,
    Entry, ///< which need not have begun
    Sound
};

/// The texts of a menu with their keys: a star behind what is checked, submenus in brackets.
QStringList linesOf(const QMenu &menu)
{
    QStringList lines;
    for (const QAction *action : menu.actions()) {
        if (action->isSeparator()) {
            continue;
        }
        if (action->menu() != nullptr) {
            lines << action->text() + " ["_L1 + linesOf(*action->menu()).join(", "_L1) + u']';
            continue;
        }
        const QString key = action->shortcut().toString();
        lines << action->text().replace(u'\t', u' ') + (key.isEmpty() ? key : u' ' + key) +
                     (action->isChecked() ? u"*"_s : QString());
    }
    return lines;
}

} // namespace

/// The keys of the player's commands, the line that tells of them, and the menu.
class tst_PlayerCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture.emplace(); }
    void theLineTellsOfAKey_data();
    void theLineTellsOfAKey();
    void theLineGoesAfterTwoSeconds();
    void aLongLineIsShortened();
    void choicesGoRound_data();
    void choicesGoRound();
    void anotherStreamHasItsOwnSpeed();
    void thePictureStaysForTheNextStream();
    void keysOfTheList_data();
    void keysOfTheList();
    void digitsAreCollected();
    void aPictureThatCannotBeSaved();
    void withoutAStreamNothingIsDelayed();
    void searchFieldsKeepTheirKeys();
    void theMenuHasAllCommandsAndKeys();

private:
    std::optional<CommandFixture> fixture;
};

void tst_PlayerCommands::theLineTellsOfAKey_data()
{
    QTest::addColumn<Needs>("needs");
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, Needs needs, Qt::Key key, bool shift,
                        const QString &expected, qint32 kind = StreamKind::Movie) {
        QTest::newRow(name) << needs << kind << key << shift << expected;
    };
    row("faster", Needs::Entry, Qt::Key_BracketRight, false, u"Speed: 1.10x"_s);
    row("slower", Needs::Entry, Qt::Key_BracketLeft, false, u"Speed: 0.90x"_s);
    row("normal speed", Needs::Entry, Qt::Key_Equal, false, u"Speed: 1.00x"_s);
    row("a live channel keeps its speed", Needs::Entry, Qt::Key_BracketRight, false,
        u"A live channel has no other speed"_s, StreamKind::Live);
    row("sound earlier", Needs::Sound, Qt::Key_J, false, u"Audio delay: -50 ms"_s);
    row("sound later", Needs::Sound, Qt::Key_K, false, u"Audio delay: 50 ms"_s);
    row("subtitles earlier", Needs::Sound, Qt::Key_G, false, u"Subtitle delay: -50 ms"_s);
    row("subtitles later", Needs::Sound, Qt::Key_H, false, u"Subtitle delay: 50 ms"_s);
    row("aspect ratio", Needs::Nothing, Qt::Key_A, false, u"Aspect ratio: 16:9"_s);
    row("crop", Needs::Nothing, Qt::Key_C, true, u"Crop: 16:10"_s);
    row("zoom", Needs::Nothing, Qt::Key_Z, false, u"Zoom: 25 %"_s);
    row("deinterlacing", Needs::Nothing, Qt::Key_D, false, u"Deinterlacing: on"_s);
    row("audio track", Needs::Sound, Qt::Key_B, false, u"Audio track: Track 1"_s);
    row("subtitle track", Needs::Nothing, Qt::Key_V, false, u"No subtitles"_s);
    row("an audio track where there is none", Needs::Entry, Qt::Key_B, false, u"No audio tracks"_s);
    row("the speed of nothing", Needs::Nothing, Qt::Key_Equal, false, u"Nothing playing"_s);
    row("the sound of nothing", Needs::Nothing, Qt::Key_J, false, u"Nothing playing"_s);
    row("the picture of nothing", Needs::Nothing, Qt::Key_S, true, u"Nothing playing"_s);
    row("always on top", Needs::Nothing, Qt::Key_T, true, u"Always on top: on"_s);
}

void tst_PlayerCommands::theLineTellsOfAKey()
{
    QFETCH(Needs, needs);
    QFETCH(qint32, kind);
    QFETCH(Qt::Key, key);
    QFETCH(bool, shift);
    if (needs == Needs::Sound) {
        fixture->playSound(kind);
    } else if (needs == Needs::Entry) {
        fixture->play(kind);
    }
    QCOMPARE(fixture->line(), QString());
    fixture->press(key, shift ? Qt::ShiftModifier : Qt::NoModifier);
    QTEST(fixture->line(), "expected");
}

void tst_PlayerCommands::theLineGoesAfterTwoSeconds()
{
    fixture->commands.tell(u"One"_s);
    const auto *line = fixture->window.findChild<QLabel *>(u"pictureLine"_s);
    auto *timer = line->findChild<QTimer *>(u"hideTimer"_s);
    QCOMPARE(timer->interval(), 2000);
    timer->setInterval(1);
    QTRY_COMPARE(fixture->line(), QString());
    fixture->commands.tell(u"Two"_s);
    QCOMPARE(fixture->line(), u"Two"_s);
}

void tst_PlayerCommands::aLongLineIsShortened()
{
    const QString text = u"A long name"_s.repeated(50);
    fixture->commands.tell(text);
    const auto &line = *fixture->window.findChild<QLabel *>(u"pictureLine"_s);
    QVERIFY(line.text().startsWith("A long name"_L1));
    QVERIFY(line.text().endsWith(u'\u2026'));
    QVERIFY(line.sizeHint().width() <= line.width());
    QVERIFY(fixture->panel.surface()->geometry().contains(line.geometry()));
    QCOMPARE(line.accessibleName(), text);
}

void tst_PlayerCommands::choicesGoRound_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<int>("count");
    QTest::newRow("aspect ratio") << Qt::Key_A << false << 9;
    QTest::newRow("crop") << Qt::Key_C << true << 11;
    QTest::newRow("zoom") << Qt::Key_Z << false << 5;
    QTest::newRow("deinterlacing") << Qt::Key_D << false << 2;
}

void tst_PlayerCommands::choicesGoRound()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, shift);
    QFETCH(int, count);
    for (int press = 1; press <= count; ++press) {
        fixture->press(key, shift ? Qt::ShiftModifier : Qt::NoModifier);
        QCOMPARE(fixture->player.picture() == PictureSettings(), press == count);
    }
}

void tst_PlayerCommands::anotherStreamHasItsOwnSpeed()
{
    fixture->playSound();
    fixture->press(Qt::Key_BracketRight);
    fixture->press(Qt::Key_K);
    QVERIFY(fixture->player.rate() > 1);
    QCOMPARE(fixture->player.audioDelayMs(), 50);
    fixture->play(StreamKind::Movie);
    QCOMPARE(fixture->player.rate(), 1.0F);
    QCOMPARE(fixture->player.audioDelayMs(), 0);
}

void tst_PlayerCommands::thePictureStaysForTheNextStream()
{
    fixture->press(Qt::Key_A);
    fixture->play(StreamKind::Movie);
    QCOMPARE(fixture->player.picture().aspectRatio, u"16:9"_s);
}

void tst_PlayerCommands::keysOfTheList_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Page Up") << Qt::Key_PageUp << u"next"_s;
    QTest::newRow("N") << Qt::Key_N << u"next"_s;
    QTest::newRow("Page Down") << Qt::Key_PageDown << u"previous"_s;
    QTest::newRow("P") << Qt::Key_P << u"previous"_s;
    QTest::newRow("Backspace") << Qt::Key_Backspace << u"last channel"_s;
}

void tst_PlayerCommands::keysOfTheList()
{
    QFETCH(Qt::Key, key);
    QStringList asked;
    const auto note = [&asked](const QString &text) { return [&asked, text] { asked << text; }; };
    connect(&fixture->commands, &PlayerCommands::nextEntryRequested, this, note(u"next"_s));
    connect(&fixture->commands, &PlayerCommands::previousEntryRequested, this, note(u"previous"_s));
    connect(&fixture->commands, &PlayerCommands::lastChannelRequested, this,
            note(u"last channel"_s));
    fixture->press(key);
    QFETCH(QString, expected);
    QCOMPARE(asked, QStringList{expected});
}

void tst_PlayerCommands::digitsAreCollected()
{
    auto &timer = *fixture->commands.findChild<QTimer *>(u"numberTimer"_s);
    QCOMPARE(timer.interval(), 1500);
    QSignalSpy requested(&fixture->commands, &PlayerCommands::channelRequested);
    fixture->press(Qt::Key_1);
    fixture->press(Qt::Key_0);
    fixture->press(Qt::Key_4);
    QCOMPARE(fixture->line(), u"Channel 104"_s);
    QVERIFY(requested.isEmpty());
    QVERIFY(timer.isActive());
    timer.setInterval(1);
    QTRY_COMPARE(requested.count(), 1);
    QCOMPARE(requested.at(0).at(0).toInt(), 104);
    // The next number begins anew. It has six digits at most.
    for (int digit = 0; digit < 8; ++digit) {
        fixture->press(Qt::Key_9);
    }
    QCOMPARE(fixture->line(), u"Channel 999999"_s);
    QTRY_COMPARE(requested.count(), 2);
    QCOMPARE(requested.at(1).at(0).toInt(), 999'999);
    fixture->press(Qt::Key_7);
    QCOMPARE(fixture->line(), u"Channel 7"_s);
}

void tst_PlayerCommands::aPictureThatCannotBeSaved()
{
    const QString folder = QDir::toNativeSeparators(QDir::rootPath() + u"nowhere"_s);
    Q_EMIT fixture->player.snapshotTaken(QDir::rootPath() + u"nowhere/News.png"_s, false);
    QCOMPARE(fixture->line(), u"The picture could not be saved in %1."_s.arg(folder));
}

void tst_PlayerCommands::withoutAStreamNothingIsDelayed()
{
    for (const Qt::Key key : {Qt::Key_G, Qt::Key_H, Qt::Key_J, Qt::Key_K}) {
        fixture->press(key);
        QCOMPARE(fixture->line(), u"Nothing playing"_s);
    }
    QCOMPARE(fixture->player.subtitleDelayMs(), 0);
    QCOMPARE(fixture->player.audioDelayMs(), 0);
}

void tst_PlayerCommands::searchFieldsKeepTheirKeys()
{
    auto &field = *fixture->window.findChild<QLineEdit *>();
    field.setFocus();
    QTest::keyClicks(&field, u"nspab[]=12TC"_s);
    fixture->press(Qt::Key_Backspace);
    QCOMPARE(field.text(), u"nspab[]=12T"_s);
    QCOMPARE(fixture->line(), QString());
}

void tst_PlayerCommands::theMenuHasAllCommandsAndKeys()
{
    fixture->press(Qt::Key_Z);
    Q_EMIT fixture->panel.customContextMenuRequested(QPoint(10, 10));
    const auto *menu = fixture->window.findChild<QMenu *>(u"rowMenu"_s);
    QVERIFY(menu != nullptr);
    const QStringList expected{
        u"Pause or Play Space"_s,
        u"Fullscreen F"_s,
        u"Small Window Shift+P"_s,
        u"Always on Top Shift+T"_s,
        u"Next PgUp"_s,
        u"Previous PgDown"_s,
        u"Last Channel Backspace"_s,
        u"Next Audio Track B"_s,
        u"Next Subtitle Track V"_s,
        u"Speed [Slower [, Faster ], Normal Speed =]"_s,
        u"Delays [Sound Earlier J, Sound Later K, Subtitles Earlier G, Subtitles Later H]"_s,
        u"Aspect Ratio [Next Aspect Ratio A, Default*, 16:9, 4:3, 1:1, 16:10, 2.21:1, 2.35:1, "
        "2.39:1, 5:4]"_s,
        u"Crop [Next Crop Shift+C, Default*, 16:10, 16:9, 4:3, 1.85:1, 2.21:1, 2.35:1, 2.39:1, "
        "5:3, 5:4, 1:1]"_s,
        u"Zoom [Next Zoom Z, Fit to Window, 25 %*, 50 %, 100 %, 200 %]"_s,
        u"Deinterlace D"_s,
        u"Save Picture Shift+S"_s,
    };
    QCOMPARE(linesOf(*menu), expected);
}

VANTIRO_TEST_MAIN(tst_PlayerCommands)
#include "tst_PlayerCommands.moc"
