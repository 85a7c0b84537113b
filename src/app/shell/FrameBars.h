#pragma once

#include "BarSizes.h"
#include "FrameState.h"
#include "OutputTail.h"

#include <memory>

class CInfoPane;
class CResModel;
class CSizingControlBar;
class Environment;
class ToolboxList;

/// The docking bars of the main window with what is in them: the Toolbox and the output.
class FrameBars
{
public:
    /// Both must live longer than the bars are used. Docks the bars in the window.
    FrameBars(QMainWindow &mainWindow, const Environment &environment);

    [[nodiscard]] CSizingControlBar &OutputBar() { return *outputBar; }
    [[nodiscard]] CSizingControlBar &ToolboxBar() { return *toolboxBar; }
    [[nodiscard]] CInfoPane &Output() { return *output; }
    /// The classes of components that a layout can be made of.
    [[nodiscard]] ToolboxList &Classes() { return *toolbox; }
    /// Whether the Toolbox is to be shown while a layout is, for all projects.
    [[nodiscard]] ToolboxState &Toolbox() { return toolboxState; }

    [[nodiscard]] bool IsOutputShown() const;
    void ShowOutput(bool show);
    [[nodiscard]] bool IsToolboxShown() const;
    void ToggleToolbox();
    /// Has the Toolbox offer what the active project can have (null while there is none), and shows it while that shows
    /// a layout, unless the user has hidden it. To be called again and again: it also sees when the user hides it.
    void FollowProject(const CResModel *active, bool showsLayout);

    /// Appends to the output pane, if that is in sight.
    void WriteOutput(QStringView text);
    /// The same for a line of its own.
    void WriteLine(const QString &text);
    /// The user begins something: what was written before has nothing to do with it.
    void BeginOutput() { told.Clear(); }
    /// The end of what was written since then, if the user can't see it.
    [[nodiscard]] QString UnseenOutput() const;

    /// Puts the bars, and the window's status bar, where they were when the program ended.
    void Restore();
    /// What the settings are to remember of them.
    [[nodiscard]] QList<ProfileEntry> State() const;
    /// The window is about to be shown.
    void RaiseFloating();

private:
    void MakeToolbox();
    void MakeOutput();

    QMainWindow &window;
    const Environment &env;
    CSizingControlBar *toolboxBar = nullptr;
    ToolboxList *toolbox = nullptr;
    CSizingControlBar *outputBar = nullptr;
    CInfoPane *output = nullptr;
    std::unique_ptr<BarSizes> sizes;
    ToolboxState toolboxState;
    bool isLayoutShown = false;
    OutputTail told; // seen or not
};
