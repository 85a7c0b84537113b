#include "MenuTable.h"

#include <algorithm>

namespace
{

constexpr MenuEntry LINE{0};

constexpr MenuEntry OPEN{CMD_OPEN, "&Open...", "Ctrl+O", "Opens a project."};
constexpr MenuEntry RECENT{CMD_RECENT_FILE, "Recent File", "", "Opens this project again."};
constexpr MenuEntry CLOSE{CMD_CLOSE, "&Close", "", "Closes the project, after a question where changes aren't saved."};
constexpr MenuEntry EXIT{CMD_EXIT, "E&xit", "", "Closes all projects and ends the program."};

constexpr MenuEntry FILE_WITHOUT_DOCUMENT[] = {OPEN, LINE, RECENT, LINE, CLOSE, EXIT};
constexpr MenuEntry FILE_ENTRIES[] = {
    OPEN,
    {CMD_CLOSE, "&Close", "Ctrl+F4", CLOSE.tip},
    {CMD_SAVE, "&Save", "Ctrl+S", "Numbers the IDs, and writes the headers and the project's files."},
    LINE,
    {CMD_IMPORT, "&Import...", "", "Takes strings or files into the project."},
    {CMD_EXPORT, "&Export...", "", "Writes the strings to a file for translators."},
    LINE,
    RECENT,
    LINE,
    EXIT,
};
constexpr MenuEntry EDIT_ENTRIES[] = {
    {CMD_UNDO, "&Undo", "Ctrl+Z Alt+Backspace", "Takes the last change back."},
    {CMD_REDO, "&Redo", "Ctrl+Y", "Makes the change again that was taken back last."},
    LINE,
    {CMD_RENAME, "Re&name", "F2", "Gives what is selected another ID."},
    {CMD_COPY, "&Copy", "Ctrl+C Ctrl+Ins", "Copies what is selected to the clipboard."},
    {CMD_PASTE, "&Paste", "Ctrl+V Shift+Ins", "Puts in what the clipboard holds."},
    {CMD_DELETE_ALL, "&Delete All", "", "Deletes all that the pane shows, after a question."},
    LINE,
    {CMD_SELECT_ALL, "Select &All", "Ctrl+A", "Selects all that the pane shows."},
};
constexpr MenuEntry VIEW_ENTRIES[] = {
    {CMD_TOOLBAR, "&Toolbar", "", "Shows or hides the tool bar.", true},
    {CMD_STATUS_BAR, "&Status Bar", "", "Shows or hides this bar.", true},
    {CMD_OUTPUT, "&Output", "", "Shows or hides what opening, saving and packing have to say.", true},
    LINE,
    {CMD_SPLIT, "S&plit", "", "Lets the arrow keys move the bar between tree and pane."},
};
constexpr MenuEntry WINDOW_ENTRIES[] = {
    {CMD_CASCADE, "&Cascade", "", "Arranges the projects' windows one behind the other."},
    {CMD_TILE, "&Tile", "", "Arranges the projects' windows side by side."},
    {CMD_ARRANGE_ICONS, "&Arrange Icons", "", "Arranges the minimised windows along the bottom."},
};
constexpr MenuEntry OTHER_ENTRIES[] = {
    {CMD_V1_LIST, "&1.0 Res", "", "Edits the list of resources for applications of version 1.0."},
};
constexpr MenuEntry HELP_ENTRIES[] = {
    {CMD_ABOUT, "&About Morvanite...", "", "Tells the program's version."},
};

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
    {CMD_CUT, "", "Ctrl+X Shift+Del"},   {CMD_DELETE, "", "Del", "Deletes what is selected, after a question."},
    {CMD_NEW_FILE, "", "Ctrl+N"},        {CMD_NEXT_PANE, "", "F6"},
    {CMD_PREVIOUS_PANE, "", "Shift+F6"}, {CMD_FIT_VIEW, "", "Ctrl+Home"},
    {CMD_ZOOM_IN, "", "Ctrl+PgUp"},      {CMD_ZOOM_OUT, "", "Ctrl+PgDown"},
};

/// Commands that are only in menus of views.
constexpr MenuEntry VIEW_MENUS[] = {
    {CMD_RESOLUTION, "", "", "Chooses the resolutions that the project is for."},
    {CMD_CLEAR, "", "", "Deletes all resources of the folder, after a question."},
    {CMD_NEW_LAYOUT, "", "", "Makes a layout for this resolution."},
    {CMD_FILTER, "", "", "Chooses the component images that the project has."},
    {CMD_CLEAR_OUTPUT, "", "", "Empties the output."},
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

QString TipOf(int command)
{
    const auto find = [command](std::span<const MenuEntry> entries) {
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [&](const MenuEntry &entry) { return entry.command == command; });
        return found == entries.end() ? QString() : QString::fromLatin1(found->tip);
    };
    for (const std::span<const Menu> bar : {MenuBar(true), MenuBar(false)}) {
        for (const Menu &menu : bar) {
            if (const QString tip = find(menu.entries); !tip.isEmpty())
                return tip;
        }
    }
    const QString tip = find(FURTHER_KEYS);
    return tip.isEmpty() ? find(VIEW_MENUS) : tip;
}
