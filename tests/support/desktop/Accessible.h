#pragma once

#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>

#include <memory>

namespace desktop {

/// What a control is, as far as tests distinguish controls.
enum class Role
{
    Other,
    Window,
    Dialog,
    MessageBox,
    Button,
    ComboBox,
    Edit, ///< one line or many
    Label,
    List,
    ListItem,
    Table,
    Cell, ///< of a table or a tree
    Tree,
    Tab,
    Slider,
    Menu, ///< an open popup menu
    MenuItem
};

/// One control of a running program, seen through the accessibility bus.
///
/// A cheap handle: every call asks the program again. A null handle, and the handle of a
/// control that is gone, answer with empty values. Searches see only what is showing, look at the
/// control's descendants in tree order, and look at no more than the first 200 items of a list,
/// table or tree.
///
/// The name that searches compare is the whole name of the control: the text of a button, label,
/// item or tab, the title of a window, the accessible name; or its description, which for an edit
/// without a description is its placeholder text; or the text of the label that belongs to it. A
/// combo box goes by its current text. Names are told in English; see Appearance::textsFor().
///
/// Use it in the main thread. Waiting lets the event loop run.
class Accessible final
{
public:
    static constexpr int defaultTimeoutMs = 60000;

    Accessible() = default;

    /// Connects to the accessibility bus. Menus are seen only if they opened after this call.
    static void connect();
    /// The program's open menus, the latest first, then its visible windows.
    static QList<Accessible> windows(qint64 processId);

    explicit operator bool() const { return node != nullptr; }
    bool operator==(const Accessible &other) const = default;

    Role role() const;
    QString name() const;
    /// The content of an edit (bullets for a hidden password); the name of anything else.
    QString text() const;
    /// Of a slider.
    double value() const;
    double maximum() const;
    /// In pixels of the screen; empty for what is not on the screen.
    QRect rect() const;

    qint64 processId() const;
    bool isShowing() const;
    bool isFocused() const;
    bool isChecked() const;

    Accessible parent() const;
    /// The window, dialog or menu that holds this control; the control itself if it is one.
    Accessible window() const;

    /// Of a list, table or tree; closed branches of a tree have no rows.
    int rowCount() const;
    /// The texts of the first column, at most `count` of them.
    QStringList rowTexts(int count = 200) const;

    QList<Accessible> findAll(Role role) const;
    Accessible find(Role role, const QString &name) const;
    /// The control of that role with that index, in tree order.
    Accessible find(Role role, int index = 0) const;
    /// As find(), but waits until the control shows. Null after the time limit, with a warning that
    /// lists what there is.
    Accessible waitFor(Role role, const QString &name, int timeoutMs = defaultTimeoutMs) const;
    Accessible waitFor(Role role) const;
    /// False if the control still shows after the time limit.
    bool waitUntilGone() const;

    /// The tree below, one control a line, for messages.
    QString describe(int depth = 0) const;

private:
    explicit Accessible(void *owned);
    static Accessible application(qint64 processId);
    bool hasState(int state) const;
    bool matches(const QStringList &names) const;
    QString roleName() const;
    QString description() const;
    /// The text of the label that belongs to it, as in a form.
    QString label() const;
    int childCount() const;
    Accessible child(int index) const;
    int searchedChildren() const;
    void collect(Role role, const QStringList &names, int wanted, QList<Accessible> &found) const;

    std::shared_ptr<void> node;
};

} // namespace desktop
