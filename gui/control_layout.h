#pragma once

#include "gui/standard_commands.h"

#include <span>

/// A place in a window, in pixels from its upper left corner (its upper right one where the desktop is read
/// from there) at the usual text size; a toolkit with larger text makes the unit larger.
struct LRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const LRect&) const = default;
};

enum class LControlKind {
    Group,      ///< a frame with a title
    CheckBox,   ///< value 0 or 1
    Radio,      ///< value 0 or 1; the radio buttons of one window exclude each other
    Edit,       ///< one line of text
    NumberEdit, ///< one line with up and down arrows; the value is the number in it
    NumberText, ///< the text field of the number edit in the row before, under an id of its own
    Chooser,    ///< one of several texts; its value is the index
    Text,
    Heading, ///< a text in larger letters
    Hint,    ///< a text in a fainter colour
    Picture, ///< the program's icon; the text is its name
    Link,    ///< a text that is used like a button, such as one that opens a page
    Button,  ///< with a standard command as id, the window's OK, Cancel or Help
    List,
    Line,
    Progress, ///< value 0..100
    Sound,    ///< the wave and spectrum of a sound; used by a right click
};

/// How a control follows a window that is made larger than its layout; any sum of these.
enum LGrowth : unsigned {
    GrowNone = 0,
    MoveRight = 1,
    MoveDown = 2,
    Widen = 4,
    Heighten = 8,
};

/// One row of a window's layout table. A height of 0 is the usual one of the kind.
struct LControlLayout {
    int id;
    LControlKind kind;
    const char* text;
    LRect rect;
    unsigned growth = GrowNone;
};

/// A dialog as it is laid out; it can be made larger where a control has a growth, and a little smaller.
struct LDialogLayout {
    const char* title;
    int width;
    int height;
    std::span<const LControlLayout> controls;
};

/// Where the control stands in a window that is larger than its layout by this much.
LRect PlaceControl(const LControlLayout& control, int extraWidth, int extraHeight);

/// True where a control has a growth.
bool CanGrow(const LDialogLayout& layout);
