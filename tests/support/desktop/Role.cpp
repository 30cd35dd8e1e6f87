#include "support/desktop/Role.h"

#include <QStringList>

#include <atspi/atspi.h>

using namespace Qt::StringLiterals;

namespace desktop {

Role roleFromBus(int busRole)
{
    switch (busRole) {
    case ATSPI_ROLE_APPLICATION:
        return Role::Application;
    case ATSPI_ROLE_WINDOW:
    case ATSPI_ROLE_FRAME:
        return Role::Window;
    case ATSPI_ROLE_DIALOG:
    case ATSPI_ROLE_FILE_CHOOSER:
        return Role::Dialog;
    case ATSPI_ROLE_ALERT:
        return Role::MessageBox;
    case ATSPI_ROLE_PUSH_BUTTON:
    case ATSPI_ROLE_PUSH_BUTTON_MENU:
    case ATSPI_ROLE_TOGGLE_BUTTON:
        return Role::Button;
    case ATSPI_ROLE_CHECK_BOX:
        return Role::CheckBox;
    case ATSPI_ROLE_RADIO_BUTTON:
        return Role::RadioButton;
    case ATSPI_ROLE_COMBO_BOX:
        return Role::ComboBox;
    case ATSPI_ROLE_TEXT:
    case ATSPI_ROLE_ENTRY:
    case ATSPI_ROLE_PASSWORD_TEXT:
        return Role::Edit;
    case ATSPI_ROLE_LABEL:
        return Role::Label;
    case ATSPI_ROLE_LIST:
    case ATSPI_ROLE_LIST_BOX:
        return Role::List;
    case ATSPI_ROLE_LIST_ITEM:
        return Role::ListItem;
    case ATSPI_ROLE_TABLE:
        return Role::Table;
    case ATSPI_ROLE_TABLE_CELL:
    case ATSPI_ROLE_TREE_ITEM:
        return Role::Cell;
    case ATSPI_ROLE_COLUMN_HEADER:
    case ATSPI_ROLE_ROW_HEADER:
    case ATSPI_ROLE_TABLE_COLUMN_HEADER:
    case ATSPI_ROLE_TABLE_ROW_HEADER:
        return Role::Header;
    case ATSPI_ROLE_TREE:
    case ATSPI_ROLE_TREE_TABLE:
        return Role::Tree;
    case ATSPI_ROLE_PAGE_TAB_LIST:
        return Role::Tabs;
    case ATSPI_ROLE_PAGE_TAB:
        return Role::Tab;
    case ATSPI_ROLE_SLIDER:
        return Role::Slider;
    case ATSPI_ROLE_SCROLL_BAR:
        return Role::ScrollBar;
    case ATSPI_ROLE_SPIN_BUTTON:
        return Role::SpinBox;
    case ATSPI_ROLE_PROGRESS_BAR:
        return Role::ProgressBar;
    case ATSPI_ROLE_MENU:
    case ATSPI_ROLE_POPUP_MENU:
        return Role::Menu;
    case ATSPI_ROLE_MENU_ITEM:
    case ATSPI_ROLE_CHECK_MENU_ITEM:
    case ATSPI_ROLE_RADIO_MENU_ITEM:
        return Role::MenuItem;
    default:
        return Role::Other;
    }
}

bool isTopLevel(Role role)
{
    return role == Role::Window || role == Role::Dialog || role == Role::MessageBox ||
           role == Role::Menu;
}

QString roleName(Role role)
{
    static const QStringList names{
        u"other"_s,      u"application"_s, u"window"_s,       u"dialog"_s,    u"message box"_s,
        u"button"_s,     u"check box"_s,   u"radio button"_s, u"combo box"_s, u"edit"_s,
        u"label"_s,      u"list"_s,        u"list item"_s,    u"table"_s,     u"cell"_s,
        u"header"_s,     u"tree"_s,        u"tabs"_s,         u"tab"_s,       u"slider"_s,
        u"scroll bar"_s, u"spin box"_s,    u"progress bar"_s, u"menu"_s,      u"menu item"_s};
    return names.value(static_cast<int>(role));
}

} // namespace desktop
