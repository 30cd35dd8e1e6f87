#include "support/desktop/Accessible.h"

#include "support/desktop/Appearance.h"

#include <QHash>

#include <atspi/atspi.h>

#include <algorithm>

namespace desktop {
namespace {

constexpr int replyTimeoutMs = 20000;

/// An error out-parameter; what it says is of no use here, since a control may go at any time.
class IgnoredError
{
public:
    IgnoredError() = default;
    ~IgnoredError() { g_clear_error(&error); }
    IgnoredError(const IgnoredError &) = delete;
    IgnoredError &operator=(const IgnoredError &) = delete;
    operator GError **() { return &error; }
    bool occurred() const { return error != nullptr; }

private:
    GError *error = nullptr;
};

AtspiAccessible *raw(const std::shared_ptr<void> &node)
{
    return static_cast<AtspiAccessible *>(node.get());
}

QString taken(gchar *text)
{
    QString result = QString::fromUtf8(text);
    g_free(text);
    return result;
}

/// One of the interfaces of a control, released at the end of the scope; null without it.
template <typename Interface>
std::unique_ptr<Interface, void (*)(gpointer)> interfaceOf(const std::shared_ptr<void> &node,
                                                           Interface *(*get)(AtspiAccessible *))
{
    return {node ? get(raw(node)) : nullptr, [](gpointer object) {
                if (object)
                    g_object_unref(object);
            }};
}

/// Menus are no children of the application; they are known only by the event that shows them.
class ShownMenus
{
public:
    void listen()
    {
        AtspiEventListener *listener =
            atspi_event_listener_new(&ShownMenus::onEvent, this, nullptr);
        IgnoredError error;
        atspi_event_listener_register(listener, "object:state-changed:showing", error);
        if (error.occurred())
            qFatal("The accessibility bus does not answer; run the test through with-display");
    }

    /// The latest first. What has gone or is no menu drops out.
    QList<std::shared_ptr<void>> open()
    {
        QList<std::shared_ptr<void>> menus;
        for (const std::shared_ptr<void> &node : QList(shown)) {
            IgnoredError error;
            const AtspiRole role = atspi_accessible_get_role(raw(node), error);
            if (!error.occurred() && role == ATSPI_ROLE_POPUP_MENU)
                menus.append(node);
            else
                shown.removeOne(node);
        }
        return menus;
    }

private:
    static void onEvent(AtspiEvent *event, void *self)
    {
        auto &shown = static_cast<ShownMenus *>(self)->shown;
        auto *source = event->source;
        shown.removeIf([source](const std::shared_ptr<void> &node) { return raw(node) == source; });
        if (event->detail1 != 0)
            shown.prepend(std::shared_ptr<void>(g_object_ref(source), g_object_unref));
        g_boxed_free(ATSPI_TYPE_EVENT, event);
    }

    QList<std::shared_ptr<void>> shown;
};

ShownMenus &shownMenus()
{
    static ShownMenus menus;
    return menus;
}

/// Events come through GLib's main loop, which Qt's need not be.
void deliverEvents()
{
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
}

Role roleFromBus(int busRole)
{
    static const QHash<int, Role> roles{
        {ATSPI_ROLE_WINDOW, Role::Window},
        {ATSPI_ROLE_FRAME, Role::Window},
        {ATSPI_ROLE_DIALOG, Role::Dialog},
        {ATSPI_ROLE_FILE_CHOOSER, Role::Dialog},
        {ATSPI_ROLE_ALERT, Role::MessageBox},
        {ATSPI_ROLE_PUSH_BUTTON, Role::Button},
        {ATSPI_ROLE_PUSH_BUTTON_MENU, Role::Button},
        {ATSPI_ROLE_TOGGLE_BUTTON, Role::Button},
        {ATSPI_ROLE_COMBO_BOX, Role::ComboBox},
        {ATSPI_ROLE_TEXT, Role::Edit},
        {ATSPI_ROLE_ENTRY, Role::Edit},
        {ATSPI_ROLE_PASSWORD_TEXT, Role::Edit},
        {ATSPI_ROLE_LABEL, Role::Label},
        {ATSPI_ROLE_LIST, Role::List},
        {ATSPI_ROLE_LIST_BOX, Role::List},
        {ATSPI_ROLE_LIST_ITEM, Role::ListItem},
        {ATSPI_ROLE_TABLE, Role::Table},
        {ATSPI_ROLE_TABLE_CELL, Role::Cell},
        {ATSPI_ROLE_TREE_ITEM, Role::Cell},
        {ATSPI_ROLE_TREE, Role::Tree},
        {ATSPI_ROLE_TREE_TABLE, Role::Tree},
        {ATSPI_ROLE_PAGE_TAB, Role::Tab},
        {ATSPI_ROLE_SLIDER, Role::Slider},
        {ATSPI_ROLE_MENU, Role::Menu},
        {ATSPI_ROLE_POPUP_MENU, Role::Menu},
        {ATSPI_ROLE_MENU_ITEM, Role::MenuItem},
        {ATSPI_ROLE_CHECK_MENU_ITEM, Role::MenuItem},
        {ATSPI_ROLE_RADIO_MENU_ITEM, Role::MenuItem},
    };
    return roles.value(busRole, Role::Other);
}

bool isTopLevel(Role role)
{
    return role == Role::Window || role == Role::Dialog || role == Role::MessageBox ||
           role == Role::Menu;
}

} // namespace

Accessible::Accessible(void *owned)
{
    if (owned)
        node = std::shared_ptr<void>(owned, g_object_unref);
}

void Accessible::connect()
{
    static const bool connected = [] {
        if (atspi_init() > 1)
            qFatal("There is no accessibility bus; run the test through with-display");
        atspi_set_timeout(replyTimeoutMs, replyTimeoutMs);
        shownMenus().listen();
        return true;
    }();
    Q_UNUSED(connected);
}

Accessible Accessible::application(qint64 processId)
{
    connect();
    const Accessible desktop(atspi_get_desktop(0));
    const int count = desktop.childCount();
    for (int index = 0; index < count; ++index) {
        Accessible candidate = desktop.child(index);
        if (candidate.processId() == processId)
            return candidate;
    }
    return {};
}

QList<Accessible> Accessible::windows(qint64 processId)
{
    connect();
    deliverEvents();
    QList<Accessible> result;
    for (const std::shared_ptr<void> &node : shownMenus().open()) {
        Accessible menu;
        menu.node = node;
        if (menu.processId() == processId && menu.isShowing())
            result.append(menu);
    }
    const Accessible root = application(processId);
    const int count = root.childCount();
    for (int index = 0; index < count; ++index) {
        if (const Accessible window = root.child(index); window.isShowing())
            result.append(window);
    }
    return result;
}

Role Accessible::role() const
{
    IgnoredError error;
    return node ? roleFromBus(atspi_accessible_get_role(raw(node), error)) : Role::Other;
}

QString Accessible::roleName() const
{
    IgnoredError error;
    return node ? taken(atspi_accessible_get_role_name(raw(node), error)) : QString();
}

QString Accessible::name() const
{
    IgnoredError error;
    return node ? taken(atspi_accessible_get_name(raw(node), error)) : QString();
}

QString Accessible::description() const
{
    IgnoredError error;
    return node ? taken(atspi_accessible_get_description(raw(node), error)) : QString();
}

QString Accessible::label() const
{
    IgnoredError error;
    GArray *relations = node ? atspi_accessible_get_relation_set(raw(node), error) : nullptr;
    if (!relations)
        return {};
    QString result;
    for (guint index = 0; index < relations->len; ++index) {
        AtspiRelation *relation = g_array_index(relations, AtspiRelation *, index);
        if (atspi_relation_get_relation_type(relation) == ATSPI_RELATION_LABELLED_BY)
            result = Accessible(atspi_relation_get_target(relation, 0)).name();
        g_object_unref(relation);
    }
    g_array_free(relations, TRUE);
    return result;
}

QString Accessible::text() const
{
    const auto text = interfaceOf(node, atspi_accessible_get_text_iface);
    if (!text)
        return name();
    IgnoredError error;
    const int length = atspi_text_get_character_count(text.get(), error);
    return error.occurred() ? QString() : taken(atspi_text_get_text(text.get(), 0, length, error));
}

double Accessible::value() const
{
    const auto value = interfaceOf(node, atspi_accessible_get_value_iface);
    IgnoredError error;
    return value ? atspi_value_get_current_value(value.get(), error) : 0;
}

double Accessible::maximum() const
{
    const auto value = interfaceOf(node, atspi_accessible_get_value_iface);
    IgnoredError error;
    return value ? atspi_value_get_maximum_value(value.get(), error) : 0;
}

QRect Accessible::rect() const
{
    const auto component = interfaceOf(node, atspi_accessible_get_component_iface);
    if (!component)
        return {};
    IgnoredError error;
    AtspiRect *extents =
        atspi_component_get_extents(component.get(), ATSPI_COORD_TYPE_SCREEN, error);
    if (!extents)
        return {};
    // Qt reports its own pixels.
    const int scale = Appearance::scale();
    const QRect result(extents->x * scale, extents->y * scale, extents->width * scale,
                       extents->height * scale);
    g_free(extents);
    return result;
}

qint64 Accessible::processId() const
{
    IgnoredError error;
    return node ? atspi_accessible_get_process_id(raw(node), error) : 0;
}

bool Accessible::hasState(int state) const
{
    if (!node)
        return false;
    AtspiStateSet *states = atspi_accessible_get_state_set(raw(node));
    if (!states)
        return false;
    const bool result = atspi_state_set_contains(states, static_cast<AtspiStateType>(state));
    g_object_unref(states);
    return result;
}

bool Accessible::isShowing() const
{
    return hasState(ATSPI_STATE_SHOWING);
}

bool Accessible::isFocused() const
{
    return hasState(ATSPI_STATE_FOCUSED);
}

bool Accessible::isChecked() const
{
    return hasState(ATSPI_STATE_CHECKED);
}

int Accessible::childCount() const
{
    IgnoredError error;
    return node ? std::max(0, atspi_accessible_get_child_count(raw(node), error)) : 0;
}

Accessible Accessible::child(int index) const
{
    IgnoredError error;
    return node ? Accessible(atspi_accessible_get_child_at_index(raw(node), index, error))
                : Accessible();
}

Accessible Accessible::parent() const
{
    IgnoredError error;
    return node ? Accessible(atspi_accessible_get_parent(raw(node), error)) : Accessible();
}

Accessible Accessible::window() const
{
    Accessible result = *this;
    while (result && !isTopLevel(result.role()))
        result = result.parent();
    return result;
}

int Accessible::rowCount() const
{
    const auto table = interfaceOf(node, atspi_accessible_get_table_iface);
    IgnoredError error;
    return table ? std::max(0, atspi_table_get_n_rows(table.get(), error)) : 0;
}

QStringList Accessible::rowTexts(int count) const
{
    QStringList result;
    const auto table = interfaceOf(node, atspi_accessible_get_table_iface);
    const int end = std::min(rowCount(), count);
    for (int row = 0; row < end; ++row) {
        IgnoredError error;
        result.append(Accessible(atspi_table_get_accessible_at(table.get(), row, 0, error)).name());
    }
    return result;
}

} // namespace desktop
