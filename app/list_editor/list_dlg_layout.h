#pragma once

#include "gui/control_layout.h"
#include "gui/key_map.h"
#include "gui/menu.h"

/// The controls of the tone list editor.
enum ListControl : int {
    ListRows = 101,
    ListAddTone = 102,
    ListAddSilence = 103,
    ListMoveUp = 104,
    ListMoveDown = 105,
    ListRemove = 106,
    ListSave = 107,
    ListSaveAs = 108,
    ListLine = 109,
    ListTotal = 110,

    ListSelectionChanged = 120, ///< commands of the list of rows
    ListRowsDragged = 121,
    ListRowsMenu = 122,

    ListEditSilence = 130, ///< commands without a button
    ListUndo = 131,
    ListRedo = 132,
};

inline constexpr unsigned WithLowerEdge = MoveDown | Widen;

inline constexpr LControlLayout ListDlgControls[] = {
    {ListRows, LControlKind::List, "", {20, 14, 498, 320}, Widen | Heighten},
    {ListAddTone, LControlKind::Button, "Add Tone", {20, 344, 498, 20}, WithLowerEdge},
    {ListAddSilence, LControlKind::Button, "Add Silence", {20, 376, 498, 20}, WithLowerEdge},
    {ListMoveUp, LControlKind::Button, "Move Up", {20, 408, 498, 20}, WithLowerEdge},
    {ListMoveDown, LControlKind::Button, "Move Down", {20, 440, 498, 20}, WithLowerEdge},
    {ListRemove, LControlKind::Button, "Remove", {20, 472, 498, 20}, WithLowerEdge},
    {ListSave, LControlKind::Button, "Save List", {20, 504, 498, 20}, WithLowerEdge},
    {ListSaveAs, LControlKind::Button, "Save List As", {20, 536, 498, 20}, WithLowerEdge},
    {ListLine, LControlKind::Line, "", {20, 568, 498, 2}, WithLowerEdge},
    {LCommandHelp, LControlKind::Button, "Help", {20, 594, 100, 0}, MoveDown},
    {ListTotal, LControlKind::Text, "", {132, 594, 160, 20}, WithLowerEdge},
    {LCommandCancel, LControlKind::Button, "Cancel", {304, 594, 100, 0}, MoveDown | MoveRight},
    {LCommandOk, LControlKind::Button, "OK", {418, 594, 100, 0}, MoveDown | MoveRight},
};

inline constexpr LKeyMapEntry ListDlgKeys[] = {
    {LKeyReturn, 0, ListEditSilence},
    {LKeyAlt | LKeyUp, 0, ListMoveUp},
    {LKeyAlt | LKeyDown, 0, ListMoveDown},
    {LKeyDelete, 0, ListRemove},
    {LKeyControl, 's', ListSave},
    {LKeyControl, 'z', ListUndo},
    {LKeyControl | LKeyShift, 'z', ListRedo},
    {LKeyControl, 'y', ListRedo},
};

/// For a right click on the rows.
inline constexpr LMenuEntry ListDlgMenu[] = {
    {ListEditSilence, "Edit Silence..."},
    {0},
    {ListMoveUp, "Move Up"},
    {ListMoveDown, "Move Down"},
    {ListRemove, "Remove"},
    {0},
    {ListUndo, "Undo"},
    {ListRedo, "Redo"},
};

inline constexpr LDialogLayout ListDlgLayout{"Tone List", 540, 630, ListDlgControls};
