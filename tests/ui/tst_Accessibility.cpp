// Everything can be reached and named without eyes and without a mouse.

#include "WindowFixture.h"
#include "guide/Guide.h"
#include "guide/GuideResult.h"
#include "ui/AccountInformationDialog.h"
#include "ui/ClearHistoryDialog.h"
#include "ui/GuideChannelDialog.h"
#include "ui/GuideDialog.h"
#include "ui/RestoreDialog.h"
#include "ui/ScheduleDialog.h"
#include "ui/SourceDialog.h"
#include "ui/SourceOptionsDialog.h"

#include <QAccessible>
#include <QRadioButton>
#include <QSet>
#include <QWindow>

namespace {

const QSet<int> controlRoles{QAccessible::PushButton,  QAccessible::EditableText,
                             QAccessible::ComboBox,    QAccessible::CheckBox,
                             QAccessible::RadioButton, QAccessible::Slider,
                             QAccessible::List,        QAccessible::Table,
                             QAccessible::Tree,        QAccessible::PageTab};

/// What a screen reader says: the name, or the text of the label that belongs to the control.
QString spokenName(QAccessibleInterface &control)
{
    QString name = control.text(QAccessible::Name);
    if (!name.isEmpty()) {
        return name;
    }
    const auto labels = control.relations(QAccessible::Label);
    return labels.isEmpty() ? QString() : labels.first().first->text(QAccessible::Name);
}

/// The class and object name of a widget, for messages.
QString described(const QObject &object)
{
    return object.objectName() + u' ' + QString::fromLatin1(object.metaObject()->className());
}

/// Walks the visible part of the tree and lists controls without a name; counts the controls.
void findNameless(QAccessibleInterface *parent, QStringList &nameless, int &controls)
{
    for (int index = 0; index < parent->childCount(); ++index) {
        QAccessibleInterface *child = parent->child(index);
        if (child == nullptr || child->state().invisible ||
            child->role() == QAccessible::ScrollBar) {
            continue;
        }
        if (controlRoles.contains(child->role())) {
            ++controls;
            if (spokenName(*child).isEmpty()) {
                nameless << (child->object() != nullptr ? described(*child->object())
                                                        : QString::number(child->role()));
            }
        }
        // The rows of a view are named by their texts; there can be very many.
        if (child->tableInterface() == nullptr && child->role() != QAccessible::ComboBox) {
            findNameless(child, nameless, controls);
        }
    }
}

/// The widgets that want the focus by Tab and do not get it, from the focused one on, until it
/// comes round.
QStringList notReachedByTab(QWidget &window)
{
    QSet<const QWidget *> reached;
    while (QApplication::focusWidget() != nullptr &&
           !reached.contains(QApplication::focusWidget())) {
        reached.insert(QApplication::focusWidget());
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    }
    QStringList missing;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        // The arrow keys go from one to the other of a group.
        const auto *radio = qobject_cast<const QRadioButton *>(widget);
        if (radio != nullptr && !radio->isChecked()) {
            continue;
        }
        const bool wantsKeys =
            (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr;
        if (wantsKeys && widget->isVisible() && widget->isEnabled() && !reached.contains(widget)) {
            missing << described(*widget);
        }
    }
    return missing;
}

/// Every control has a name, and Tab reaches each of them from `first` on.
void expectAccessible(QWidget &window, int minControls, const QString &first)
{
    QStringList nameless;
    int controls = 0;
    findNameless(QAccessible::queryAccessibleInterface(&window), nameless, controls);
    QCOMPARE(nameless, QStringList());
    QVERIFY(controls >= minControls);
    window.findChild<QWidget *>(first)->setFocus();
    QCOMPARE(notReachedByTab(window), QStringList());
}

} // namespace

class tst_Accessibility : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QAccessible::setActive(true); }
    void init() { reset(); }
    void mainWindow_data();
    void mainWindow();
    void sourceDialog();
    void moreDialogs();
};

void tst_Accessibility::mainWindow_data()
{
    QTest::addColumn<bool>("playing");
    QTest::newRow("categories, nothing playing") << false;
    QTest::newRow("entries, every row of the player") << true;
}

void tst_Accessibility::mainWindow()
{
    QFETCH(bool, playing);
    cacheOneChannel(u"List"_s, u"One"_s);
    store(playlistSource(u"List"_s, u"/nowhere"_s));
    open();
    if (playing) {
        window().selectChannelCategory(find<QListWidget>(u"channelCategoryList"_s).item(1));
        window().playMediaItem(channel(u"Something"_s, u"http://127.0.0.1:9/1"_s, {}));
        for (const QString &name : {u"seekRow"_s, u"controlsRow"_s, u"nextEpisodeButton"_s}) {
            find<QWidget>(name).show();
        }
    }
    expectAccessible(window(), 6, u"sourceCombo"_s);
    // Neither is a control, but the keyboard stops at the one, and the other is most of the window.
    for (const auto &[widget, name] :
         {std::pair(u"playerPanel"_s, u"Player"_s), std::pair(u"videoSurface"_s, u"Video"_s)}) {
        auto *spoken = QAccessible::queryAccessibleInterface(&find<QWidget>(widget));
        QCOMPARE(spoken->text(QAccessible::Name), name);
    }
}

void tst_Accessibility::sourceDialog()
{
    for (const qint32 type : {SourceType::Playlist, SourceType::Xtream, SourceType::Zevrino}) {
        SourceConfig source;
        source.type = type;
        SourceDialog dialog(nullptr, &source);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        expectAccessible(dialog, 4, u"typeCombo"_s);
    }
}

void tst_Accessibility::moreDialogs()
{
    const SourceConfig source = accountSource(u"A"_s, u"http://127.0.0.1:9"_s);
    LibraryRows rows;
    rows.history.append(WatchedEntry());
    rows.progress.append(Progress());
    ClearHistoryDialog clearHistory(rows, nullptr);
    RestoreDialog restore({}, {{source}, rows}, nullptr);
    AccountInformationDialog account(source, nullptr);
    GuideSettings settings;
    settings.enabled = true;
    settings.addresses = u"http://h/guide.xml"_s;
    GuideDialog guide(settings, true, nullptr);
    guide.setResult({1, 0, 0, 0, 0, 0, {}, false});
    Guide stored(nullptr);
    GuideChannelDialog guideChannel(&stored, {u"A"_s, EntryKind::Live, u"1"_s, u"One"_s, {}},
                                    {u"one"_s, GuideMatch::Rule::Suggestion}, {}, nullptr);
    ScheduleDialog schedule(u"A"_s, {}, &stored, nullptr);
    SourceOptionsDialog options(source, nullptr);
    using Case = std::tuple<QDialog *, int, QString>;
    for (const auto &[dialog, controls, first] :
         {Case(&clearHistory, 4, u"watchedCheck"_s), Case(&restore, 4, u"mergeButton"_s),
          Case(&account, 1, u"closeButton"_s), Case(&guide, 10, u"guideEnabled"_s),
          Case(&guideChannel, 7, u"automaticGuide"_s), Case(&schedule, 6, u"dayBox"_s),
          Case(&options, 3, u"userAgentEdit"_s)}) {
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        expectAccessible(*dialog, controls, first);
    }
}

VANTIRO_TEST_MAIN(tst_Accessibility)
#include "tst_Accessibility.moc"
