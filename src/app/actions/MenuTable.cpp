// SPDX-License-Identifier: MIT
#include "MenuTable.h"

#include <algorithm>

namespace
{

constexpr MenuEntry LINE{ACTION_NONE};

constexpr MenuEntry OPEN{ACTION_OPEN, "&Open...", "Ctrl+O", "Opens a project."};
constexpr MenuEntry NEW_PROJECT{ACTION_NEW_PROJECT, "&New Project...", "",
                                "Makes the files of a new project and opens it."};
constexpr MenuEntry RECENT{ACTION_RECENT_FILE, "Recent File", "", "Opens this project again."};
constexpr MenuEntry CLOSE{ACTION_CLOSE, "&Close", "", "Closes the project. Asks first if it has unsaved changes."};
constexpr MenuEntry EXIT{ACTION_EXIT, "E&xit", "", "Closes all projects and quits Morvanite."};

constexpr MenuEntry FILE_WITHOUT_DOCUMENT[] = {OPEN, NEW_PROJECT, LINE, RECENT, LINE, CLOSE, EXIT};
constexpr MenuEntry FILE_ENTRIES[] = {
    OPEN,
    NEW_PROJECT,
    {ACTION_CLOSE, "&Close", "Ctrl+F4", CLOSE.tip},
    {ACTION_SAVE, "&Save", "Ctrl+S", "Numbers the IDs and writes the headers and the project's files."},
    LINE,
    {ACTION_IMPORT, "&Import...", "", "Imports strings or files into the project."},
    {ACTION_EXPORT, "&Export...", "", "Exports the strings to a file for translators."},
    LINE,
    RECENT,
    LINE,
    EXIT,
};
constexpr MenuEntry EDIT_ENTRIES[] = {
    {ACTION_UNDO, "&Undo", "Ctrl+Z Alt+Backspace", "Undoes the last change."},
    {ACTION_REDO, "&Redo", "Ctrl+Y", "Redoes the change that was undone last."},
    LINE,
    {ACTION_RENAME, "Re&name", "F2", "Changes the ID of the selection."},
    {ACTION_COPY, "&Copy", "Ctrl+C Ctrl+Ins", "Copies the selection to the clipboard."},
    {ACTION_PASTE, "&Paste", "Ctrl+V Shift+Ins", "Inserts the contents of the clipboard."},
    {ACTION_DELETE_ALL, "&Delete All", "", "Deletes everything in this pane. Asks first."},
    LINE,
    {ACTION_SELECT_ALL, "Select &All", "Ctrl+A", "Selects everything in this pane."},
};
constexpr MenuEntry VIEW_ENTRIES[] = {
    {ACTION_TOOLBAR, "&Toolbar", "", "Shows or hides the tool bar.", true},
    {ACTION_STATUS_BAR, "&Status Bar", "", "Shows or hides this bar.", true},
    {ACTION_OUTPUT, "&Output", "", "Shows or hides the messages of opening, saving and packing.", true},
    {ACTION_FINDINGS, "Fi&ndings", "", "Checks the project, and shows or hides what is wrong in it.", true},
    LINE,
    {ACTION_SPLIT, "S&plit", "", "Lets the arrow keys move the divider between the tree and the pane."},
    LINE,
    {ACTION_FIND_BAR, "&Find Bar", "Ctrl+F", "Shows or hides the bar that finds rows and filters them.", true},
    {ACTION_DETAILS, "&Details", "F4", "Shows or hides the whole text, or the preview, of the current row.", true},
};
constexpr size_t VIEW_ENTRIES_OF_THE_FRAME = 6; // the others are about what a pane shows
constexpr MenuEntry WINDOW_ENTRIES[] = {
    {ACTION_CASCADE, "&Cascade", "", "Arranges the project windows so that they overlap."},
    {ACTION_TILE, "&Tile", "", "Arranges the project windows side by side."},
    {ACTION_ARRANGE_ICONS, "&Arrange Icons", "", "Arranges the minimised windows along the bottom."},
};
constexpr MenuEntry OTHER_ENTRIES[] = {
    {ACTION_V1_LIST, "&1.0 Res", "", "Edits the list of resources for applications of version 1.0."},
};
constexpr MenuEntry HELP_ENTRIES[] = {
    {ACTION_ABOUT, "&About Morvanite...", "", "Shows the program's version."},
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
    {ACTION_DELETE, "", "Del", "Deletes the selection. Asks first."},
    {ACTION_NEW_FILE, "", "Ctrl+N"},
    {ACTION_NEXT_PANE, "", "F6"},
    {ACTION_PREVIOUS_PANE, "", "Shift+F6"},
    {ACTION_FIT_VIEW, "", "Ctrl+Home", "Fits the screen into the preview."},
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
    {ACTION_NEXT_FINDING, "", "F8"},
    {ACTION_PREVIOUS_FINDING, "", "Shift+F8"},
};

constexpr const char *ZOOM_TIP = "Shows the layout at this zoom.";

/// Actions that are only in menus of views.
constexpr MenuEntry VIEW_MENUS[] = {
    {ACTION_RESOLUTION, "", "", "Chooses the project's resolutions."},
    {ACTION_CLEAR, "", "", "Deletes all resources of the folder. Asks first."},
    {ACTION_NEW_LAYOUT, "", "", "Creates a layout for this resolution."},
    {ACTION_FILTER, "", "", "Chooses the project's component images."},
    {ACTION_NEW, "", "", "Adds a new row."},
    {ACTION_LANGUAGE, "", "", "Chooses the project's languages."},
    {ACTION_PUSH_STRING, "", "", "Sets the type of the selected rows to Push, or back to Normal."},
    {ACTION_CLEAR_OUTPUT, "", "", "Clears the output."},
    {ACTION_BROWSE, "", "", "Chooses the file of the selected row."},
    {ACTION_OPEN_FILE, "", "", "Opens the file in its default program."},
    {ACTION_OPEN_FOLDER, "", "", "Opens the folder that contains the file."},
    {ACTION_PUSH_FILE, "", "", "Sets the type of the selected rows to Push, or back to Normal."},
    {ACTION_FILTER_IMAGES, "", "", "Chooses the project's component images."},
    {ACTION_RESET_IMAGE, "", "", "Restores the stock images of the selected rows."},
    {ActionId(ACTION_ZOOM_PRESET), "", "", ZOOM_TIP},
    {ActionId(ACTION_ZOOM_PRESET + 1), "", "", ZOOM_TIP},
    {ActionId(ACTION_ZOOM_PRESET + 2), "", "", ZOOM_TIP},
    {ActionId(ACTION_ZOOM_PRESET + 3), "", "", ZOOM_TIP},
    {ActionId(ACTION_ZOOM_PRESET + 4), "", "", ZOOM_TIP},
    {ActionId(ACTION_ZOOM_PRESET + 5), "", "", ZOOM_TIP},
    {ACTION_ZOOM_CUSTOM, "", "", "Asks for a zoom in percent."},
    {ACTION_GO_TO_FINDING, "", "", "Goes to the text, the file or the component that the finding is about."},
    {ACTION_EXPLAIN_RULE, "", "", "Shows or hides what the rule finds, and what to do."},
    {ACTION_CHECK_AGAIN, "", "", "Checks the whole project again."},
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
