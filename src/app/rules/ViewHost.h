// SPDX-License-Identifier: MIT
#pragma once

#include "Actions.h"
#include "ViewBoxes.h"

enum class Pane;

/// The services that a window offers to its views.
class IViewHost
{
public:
    [[nodiscard]] virtual IViewBoxes &Boxes() = 0;
    /// Shows a pane to the right of the project tree.
    virtual void ShowPane(Pane pane) = 0;
    /// Runs an action as the menu does.
    virtual void RunAction(ActionId id) = 0;
    /// Commits what is being edited in place, in a pane or as a label. If it is refused, tells the user and returns
    /// false.
    [[nodiscard]] virtual bool TakeEdit() = 0;
    /// Calls `call` now, or after the running command of an IDE.
    virtual void AfterCommand(std::function<void()> call) = 0;
    /// Returns whether the action is enabled, as the menu shows it.
    [[nodiscard]] virtual bool IsEnabled(ActionId id) const = 0;
    /// Called when the panes of a layout are shown or hidden.
    virtual void ShowLayoutMode(bool isOn) = 0;
    /// Shows the zoom of the preview in the status bar. An empty text removes it.
    virtual void ShowZoom(const QString &zoom) = 0;

protected:
    ~IViewHost() = default;
};
