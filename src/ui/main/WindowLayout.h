#pragma once

class frmMain;

// How the main window holds together from 800 x 600 to 2560 x 1440: the
// numbers of the bitmap's frames keep room for five digits, the page column
// is as large as its largest page (so switching pages moves nothing) and
// scrolls when the window is smaller; the pages get their room before the
// bitmap does, then (while the bitmap keeps room for a tile at zoom 2) up to
// what shows the complete texture list's every column, and the bitmap takes
// all that is left. The checklist of textures to draw
// keeps eight rows in view.
class WindowLayout
{
public:
    static void Settle(frmMain& window);
    // The size and splitter the window had when it was last closed; what
    // cannot be read back is left as Settle made it.
    static void Restore(frmMain& window);
    static void Remember(frmMain& window);
    // The least width beside the docks that shows the bitmap's frames and the
    // page column's page whole, without a sideways scroll.
    static int LeastCentralWidth(frmMain& window);

    // The widest text a number label of the window must show whole.
    static constexpr const char* WidestNumber = "32768";
};
