#include "MenuTable.h"

namespace
{

constexpr MenuEntry LINE{0};

constexpr MenuEntry FILE_WITHOUT_DOCUMENT[] = {
    {CMD_OPEN, "&Open...", "Ctrl+O"},
    LINE,
    {CMD_RECENT_FILE, "Recent File"},
    LINE,
    {CMD_CLOSE, "&Close"},
    {CMD_EXIT, "E&xit"},
};
constexpr MenuEntry FILE_ENTRIES[] = {
    {CMD_OPEN, "&Open...", "Ctrl+O"},
    {CMD_CLOSE, "&Close", "Ctrl+F4"},
    {CMD_SAVE, "&Save", "Ctrl+S"},
    LINE,
    {CMD_IMPORT, "&Import..."},
    {CMD_EXPORT, "&Export..."},
    LINE,
    {CMD_RECENT_FILE, "Recent File"},
    LINE,
    {CMD_EXIT, "E&xit"},
};
constexpr MenuEntry EDIT_ENTRIES[] = {
    {CMD_UNDO, "&Undo", "Ctrl+Z Alt+Backspace"},
    {CMD_REDO, "&Redo", "Ctrl+Y"},
    LINE,
    {CMD_RENAME, "Re&name", "F2"},
    {CMD_COPY, "&Copy", "Ctrl+C Ctrl+Ins"},
    {CMD_PASTE, "&Paste", "Ctrl+V Shift+Ins"},
    {CMD_DELETE_ALL, "&Delete All"},
    LINE,
    {CMD_SELECT_ALL, "Select &All", "Ctrl+A"},
};
constexpr MenuEntry VIEW_ENTRIES[] = {
    {CMD_TOOLBAR, "&Toolbar", "", true},
    {CMD_STATUS_BAR, "&Status Bar", "", true},
    {CMD_OUTPUT, "&Output", "", true},
    LINE,
    {CMD_SPLIT, "S&plit"},
};
constexpr MenuEntry WINDOW_ENTRIES[] = {
    {CMD_CASCADE, "&Cascade"},
    {CMD_TILE, "&Tile"},
    {CMD_ARRANGE_ICONS, "&Arrange Icons"},
};
constexpr MenuEntry OTHER_ENTRIES[] = {{CMD_V1_LIST, "&1.0 Res"}};
constexpr MenuEntry HELP_ENTRIES[] = {{CMD_ABOUT, "&About Morvanite..."}};

constexpr Menu WITHOUT_DOCUMENT[] = {
    {"&File", FILE_WITHOUT_DOCUMENT},
    {"&View", VIEW_ENTRIES},
    {"&Help", HELP_ENTRIES},
};
constexpr Menu WITH_DOCUMENT[] = {
    {"&File", FILE_ENTRIES},           {"&Edit", EDIT_ENTRIES},   {"&View", VIEW_ENTRIES},
    {"&Window", WINDOW_ENTRIES, true}, {"&Other", OTHER_ENTRIES}, {"&Help", HELP_ENTRIES},
};

constexpr MenuEntry FURTHER_KEYS[] = {
    {CMD_CUT, "", "Ctrl+X Shift+Del"},   {CMD_DELETE, "", "Del"},
    {CMD_NEW_FILE, "", "Ctrl+N"},        {CMD_NEXT_PANE, "", "F6"},
    {CMD_PREVIOUS_PANE, "", "Shift+F6"}, {CMD_FIT_VIEW, "", "Ctrl+Home"},
    {CMD_ZOOM_IN, "", "Ctrl+PgUp"},      {CMD_ZOOM_OUT, "", "Ctrl+PgDown"},
};

constexpr int TOOL_BAR[] = {CMD_OPEN, CMD_SAVE, 0, CMD_UNDO, CMD_REDO, 0, CMD_OUTPUT, 0, CMD_ABOUT};

} // namespace

std::span<const Menu> MenuBar(bool hasDocument)
{
    return hasDocument ? std::span<const Menu>(WITH_DOCUMENT) : std::span<const Menu>(WITHOUT_DOCUMENT);
}

std::span<const MenuEntry> FurtherKeys()
{
    return FURTHER_KEYS;
}

std::span<const int> ToolBarCommands()
{
    return TOOL_BAR;
}
