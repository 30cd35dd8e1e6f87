#pragma once

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

/// The role that the accessibility bus gives as this number.
Role roleFromBus(int busRole);
/// Whether it stands on the screen by itself: a window, dialog, message box or menu.
bool isTopLevel(Role role);

} // namespace desktop
