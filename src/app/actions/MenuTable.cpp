// SPDX-License-Identifier: MIT
#include "MenuTable.h"

#include <algorithm>

namespace
{

constexpr MenuEntry LINE{ACTION_NONE};

constexpr MenuEntry OPEN{ACTION_OPEN, "&Open...", "Ctrl+O", "Opens a project."};
constexpr MenuEntry RECENT{ACTION_RECENT_FILE, "Recent File", "", "Opens this project again."};
constexpr MenuEntry CLOSE{ACTION_CLOSE, "&Close", "",
                          "Closes the project, after a question where changes aren't saved."};
constexpr MenuEntry EXIT{ACTION_EXIT, "E&xit", "", "Closes all projects and ends the program."};

constexpr MenuEntry FILE_WITHOUT_DOCUMENT[] = {OPEN, LINE, RECENT, LINE, CLOSE, EXIT};
constexpr MenuEntry FILE_ENTRIES[] = {
    OPEN,
    {ACTION_CLOSE, "&Close", "Ctrl+F4", CLOSE.tip},
    {ACTION_SAVE, "&Save", "Ctrl+S", "Numbers the IDs, and writes the headers and the project's files."},
    LINE,
    {ACTION_IMPORT, "&Import...", "", "Takes strings or files into the project."},
    {ACTION_EXPORT, "&Export...", "", "Writes the strings to a file for translators."},
    LINE,
    RECENT,
    LINE,
    EXIT,
};
constexpr MenuEntry EDIT_ENTRIES[] = {
    {ACTION_UNDO, "&Undo", "Ctrl+Z Alt+Backspace", "Takes the last change back."},
    {ACTION_REDO, "&Redo", "Ctrl+Y", "Makes the change again that was taken back last."},
    LINE,
    {ACTION_RENAME, "Re&name", "F2", "Gives what is selected another ID."},
    {ACTION_COPY, "&Copy", "Ctrl+C Ctrl+Ins", "Copies what is selected to the clipboard."},
    {ACTION_PASTE, "&Paste", "Ctrl+V Shift+Ins", "Puts in what the clipboard holds."},
    {ACTION_DELETE_ALL, "&Delete All", "", "Deletes all that the pane shows, after a question."},
    LINE,
    {ACTION_SELECT_ALL, "Select &All", "Ctrl+A", "Selects all that the pane shows."},
};
constexpr MenuEntry VIEW_ENTRIES[] = {
    {ACTION_TOOLBAR, "&Toolbar", "", "Shows or hides the tool bar.", true},
    {ACTION_STATUS_BAR, "&Status Bar", "", "Shows or hides this bar.", true},
    {ACTION_OUTPUT, "&Output", "", "Shows or hides what opening, saving and packing have to say.", true},
    LINE,
    {ACTION_SPLIT, "S&plit", "", "Lets the arrow keys move the bar between tree and pane."},
    LINE,
    {ACTION_FIND_BAR, "&Find Bar", "Ctrl+F", "Shows or hides the bar that finds rows and filters them.", true},
    {ACTION_DETAILS, "&Details", "F4", "Shows or hides the whole text, or the preview, of what is in focus.", true},
};
constexpr size_t VIEW_ENTRIES_OF_THE_FRAME = 5; // the others are about what a pane shows
constexpr MenuEntry WINDOW_ENTRIES[] = {
    {ACTION_CASCADE, "&Cascade", "", "Arranges the projects' windows one behind the other."},
    {ACTION_TILE, "&Tile", "", "Arranges the projects' windows side by side."},
    {ACTION_ARRANGE_ICONS, "&Arrange Icons", "", "Arranges the minimised windows along the bottom."},
};
constexpr MenuEntry OTHER_ENTRIES[] = {
    {ACTION_V1_LIST, "&1.0 Res", "", "Edits the list of resources for applications of version 1.0."},
};
constexpr MenuEntry HELP_ENTRIES[] = {
    {ACTION_ABOUT, "&About Morvanite...", "", "Tells the program's version."},
};

constexpr Menu WITHOUT_DOCUMENT[] = {
    {"&File", FILE_WITHOUT_DOCUMENT},
    {"&View", std::span(VIEW_ENTRIES).first(VIEW_ENTRIES_OF_THE_FRAME)},
    {"&Help", HELP_ENTRIES},
};
constexpr Menu WITH_DOCUMENT[] = {
    {"&File", FILE_ENTRIES},           {"&Edit", EDIT_ENTRIES},   {"&View", VIEW_ENTRIES},
    {"&Window", WINDOW_ENTRIES, true}, {"&Other", OTHER_ENTRIES}, {"&Help", HELP_ENTRIES},
};

constexpr MenuEntry FURTHER_KEYS[] = {
    {ACTION_CUT, "", "Ctrl+X Shift+Del"},
    {ACTION_DELETE, "", "Del", "Deletes what is selected, after a question."},
    {ACTION_NEW_FILE, "", "Ctrl+N"},
    {ACTION_NEXT_PANE, "", "F6"},
    {ACTION_PREVIOUS_PANE, "", "Shift+F6"},
    {ACTION_FIT_VIEW, "", "Ctrl+Home", "Makes the screen as large as the preview has room for."},
    {ACTION_ZOOM_IN, "", "Ctrl+PgUp", "Shows the layout larger."},
    {ACTION_ZOOM_OUT, "", "Ctrl+PgDown", "Shows the layout smaller."},
    {ACTION_FIND_NEXT, "", "F3"},
    {ACTION_FIND_PREVIOUS, "", "Shift+F3"},
    {ACTION_NEXT_GAP, "", "Ctrl+J"},
    {ACTION_PREVIOUS_GAP, "", "Ctrl+K"},
    {ACTION_COPY_CELLS, "", "Ctrl+Shift+C"},
    {ACTION_PASTE_CELLS, "", "Ctrl+Shift+V"},
    {ACTION_REPLACE, "", "Ctrl+H"},
    {ACTION_GO_TO_ID, "", "Ctrl+G"},
    {ACTION_THUMBNAILS, "", "Ctrl+T"},
};

constexpr const char *ZOOM_TIP = "Shows the layout at this zoom.";

/// Actions that are only in menus of views.
constexpr MenuEntry VIEW_MENUS[] = {
    {ACTION_RESOLUTION, "", "", "Chooses the resolutions that the project is for."},
    {ACTION_CLEAR, "", "", "Deletes all resources of the folder, after a question."},
    {ACTION_NEW_LAYOUT, "", "", "Makes a layout for this resolution."},
    {ACTION_FILTER, "", "", "Chooses the component images that the project has."},
    {ACTION_NEW, "", "", "Begins a new row."},
    {ACTION_LANGUAGE, "", "", "Chooses the languages of the project."},
    {ACTION_PUSH_STRING, "", "", "Makes the selected rows Push, or Normal again."},
    {ACTION_CLEAR_OUTPUT, "", "", "Empties the output."},
    {ACTION_BROWSE, "", "", "Chooses the file of the selected row."},
    {ACTION_OPEN_FILE, "", "", "Opens the file with the program that the desktop has for it."},
    {ACTION_OPEN_FOLDER, "", "", "Opens the folder that the file is in."},
    {ACTION_PUSH_FILE, "", "", "Makes the selected rows Push, or Normal again."},
    {ACTION_FILTER_IMAGES, "", "", "Chooses the component images that the project has."},
    {ACTION_RESET_IMAGE, "", "", "Gives the selected rows their stock images back."},
    {ActionId(ACTION_ZOOM_PRESET), "", "", ZOOM_TIP},
    {ActionId(ACTION_ZOOM_PRESET + 1), "", "", ZOOM_TIP},
    {ActionId(ACTION_ZOOM_PRESET + 2), "", "", ZOOM_TIP},
    {ActionId(ACTION_ZOOM_PRESET + 3), "", "", ZOOM_TIP},
    {ActionId(ACTION_ZOOM_PRESET + 4), "", "", ZOOM_TIP},
    {ActionId(ACTION_ZOOM_PRESET + 5), "", "", ZOOM_TIP},
    {ACTION_ZOOM_CUSTOM, "", "", "Asks for a zoom in percent."},
};

constexpr ActionId TOOL_BAR[] = {ACTION_OPEN, ACTION_SAVE,   ACTION_NONE, ACTION_UNDO, ACTION_REDO,
                                 ACTION_NONE, ACTION_OUTPUT, ACTION_NONE, ACTION_ABOUT};

} // namespace

std::span<const Menu> MenuBar(bool hasDocument)
{
    return hasDocument ? std::span<const Menu>(WITH_DOCUMENT) : std::span<const Menu>(WITHOUT_DOCUMENT);
}

std::span<const MenuEntry> FurtherKeys()
{
    return FURTHER_KEYS;
}

std::span<const ActionId> ToolBarActions()
{
    return TOOL_BAR;
}

QString TipOf(ActionId id)
{
    const auto find = [id](std::span<const MenuEntry> entries) {
        const auto found =
            std::find_if(entries.begin(), entries.end(), [&](const MenuEntry &entry) { return entry.id == id; });
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
