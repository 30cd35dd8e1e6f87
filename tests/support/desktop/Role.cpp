#include "support/desktop/Role.h"

#include <QHash>

#include <atspi/atspi.h>

namespace desktop {

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

} // namespace desktop
