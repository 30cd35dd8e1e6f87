#include "support/desktop/Role.h"

#include <QList>

#include <atspi/atspi.h>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

struct RoleEntry
{
    Role role;
    QString name;
    QList<int> busRoles;
};

const QList<RoleEntry> &roles()
{
    static const QList<RoleEntry> entries{
        {Role::Window, u"window"_s, {ATSPI_ROLE_WINDOW, ATSPI_ROLE_FRAME}},
        {Role::Dialog, u"dialog"_s, {ATSPI_ROLE_DIALOG, ATSPI_ROLE_FILE_CHOOSER}},
        {Role::MessageBox, u"message box"_s, {ATSPI_ROLE_ALERT}},
        {Role::Button,
         u"button"_s,
         {ATSPI_ROLE_PUSH_BUTTON, ATSPI_ROLE_PUSH_BUTTON_MENU, ATSPI_ROLE_TOGGLE_BUTTON}},
        {Role::ComboBox, u"combo box"_s, {ATSPI_ROLE_COMBO_BOX}},
        {Role::Edit, u"edit"_s, {ATSPI_ROLE_TEXT, ATSPI_ROLE_ENTRY, ATSPI_ROLE_PASSWORD_TEXT}},
        {Role::Label, u"label"_s, {ATSPI_ROLE_LABEL}},
        {Role::List, u"list"_s, {ATSPI_ROLE_LIST, ATSPI_ROLE_LIST_BOX}},
        {Role::ListItem, u"list item"_s, {ATSPI_ROLE_LIST_ITEM}},
        {Role::Table, u"table"_s, {ATSPI_ROLE_TABLE}},
        {Role::Cell, u"cell"_s, {ATSPI_ROLE_TABLE_CELL, ATSPI_ROLE_TREE_ITEM}},
        {Role::Header,
         u"header"_s,
         {ATSPI_ROLE_COLUMN_HEADER, ATSPI_ROLE_ROW_HEADER, ATSPI_ROLE_TABLE_COLUMN_HEADER,
          ATSPI_ROLE_TABLE_ROW_HEADER}},
        {Role::Tree, u"tree"_s, {ATSPI_ROLE_TREE, ATSPI_ROLE_TREE_TABLE}},
        {Role::Tabs, u"tabs"_s, {ATSPI_ROLE_PAGE_TAB_LIST}},
        {Role::Tab, u"tab"_s, {ATSPI_ROLE_PAGE_TAB}},
        {Role::Slider, u"slider"_s, {ATSPI_ROLE_SLIDER}},
        {Role::Menu, u"menu"_s, {ATSPI_ROLE_MENU, ATSPI_ROLE_POPUP_MENU}},
        {Role::MenuItem,
         u"menu item"_s,
         {ATSPI_ROLE_MENU_ITEM, ATSPI_ROLE_CHECK_MENU_ITEM, ATSPI_ROLE_RADIO_MENU_ITEM}}};
    return entries;
}

} // namespace

Role roleFromBus(int busRole)
{
    for (const RoleEntry &entry : roles()) {
        if (entry.busRoles.contains(busRole))
            return entry.role;
    }
    return Role::Other;
}

bool isTopLevel(Role role)
{
    return role == Role::Window || role == Role::Dialog || role == Role::MessageBox ||
           role == Role::Menu;
}

QString roleName(Role role)
{
    for (const RoleEntry &entry : roles()) {
        if (entry.role == role)
            return entry.name;
    }
    return u"other"_s;
}

} // namespace desktop
