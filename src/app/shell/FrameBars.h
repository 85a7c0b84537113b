// SPDX-License-Identifier: MIT
#pragma once

#include "BarSizes.h"
#include "FrameState.h"
#include "OutputTail.h"

#include <memory>

class BarPages;
class CInfoPane;
class CResModel;
class CSizingControlBar;
class Environment;
class FindingsPane;
class QWidget;
class ToolboxList;

/// The docking bars of the main window with their contents: the Toolbox, and the output with the findings as a second
/// page while these are in use.
class FrameBars
{
public:
    /// Docks the bars in the window. Both arguments must exist for as long as the bars are used.
    FrameBars(QMainWindow &mainWindow, Environment &environment);

    [[nodiscard]] CSizingControlBar &OutputBar() { return *outputBar; }
    [[nodiscard]] CSizingControlBar &ToolboxBar() { return *toolboxBar; }
    [[nodiscard]] CInfoPane &Output() { return *output; }
    /// The list of component classes in the Toolbox.
    [[nodiscard]] ToolboxList &Classes() { return *toolbox; }
    /// Whether the Toolbox is shown while a layout is shown, for all projects.
    [[nodiscard]] ToolboxState &Toolbox() { return toolboxState; }

    /// Returns whether the Output bar is visible, whichever page it shows.
    [[nodiscard]] bool IsOutputShown() const;
    /// Shows the Output bar with the output, or hides the bar.
    void ShowOutput(bool show);
    /// The page that the Output bar shows.
    [[nodiscard]] QWidget &OutputPage() const;
    /// Returns whether the user can read the output: the bar is visible and shows it.
    [[nodiscard]] bool IsOutputRead() const;

    [[nodiscard]] FindingsPane &Findings() { return *findings; }
    /// Returns whether the findings are in use.
    [[nodiscard]] bool HasFindings() const;
    /// Puts the findings into use as a page of the Output bar. With `show` the bar is shown, with that page.
    void ShowFindings(bool show);
    /// Takes the findings out of use.
    void DropFindings();
    [[nodiscard]] bool IsToolboxShown() const;
    void ToggleToolbox();
    /// Fills the Toolbox for the active project (null if there is none), and shows it while that project shows a
    /// layout, unless the user has hidden it. Must be called repeatedly, because it also detects that the user has
    /// hidden it.
    void FollowProject(const CResModel *active, bool showsLayout);

    /// Appends text to the output, and shows it in the output pane if that is visible.
    void WriteOutput(QStringView text);
    /// Appends a text as its own line.
    void WriteLine(const QString &text);
    /// Must be called when the user begins an operation: earlier output doesn't belong to it.
    void BeginOutput() { told.Clear(); }
    /// The end of the output since BeginOutput, if the user can't see it.
    [[nodiscard]] QString UnseenOutput() const;

    /// Restores the positions of the bars, and the state of the status bar, from when the program last ended.
    void Restore();
    /// The entries of the bars to store in the settings.
    [[nodiscard]] QList<ProfileEntry> State() const;
    /// Must be called when the window is about to be shown.
    void RaiseFloating();

private:
    void MakeToolbox();
    void MakeOutput();

    QMainWindow &window;
    Environment &env;
    CSizingControlBar *toolboxBar = nullptr;
    ToolboxList *toolbox = nullptr;
    CSizingControlBar *outputBar = nullptr;
    BarPages *pages = nullptr; // of the Output bar
    CInfoPane *output = nullptr;
    FindingsPane *findings = nullptr;
    std::unique_ptr<BarSizes> sizes;
    ToolboxState toolboxState;
    bool isLayoutShown = false;
    OutputTail told; // the output since BeginOutput, whether the user has seen it or not
};
