#pragma once

#include "Actions.h"
#include "ViewBoxes.h"

enum class Pane;

/// What views ask of the window that they are in.
class IViewHost
{
public:
    [[nodiscard]] virtual IViewBoxes &Boxes() = 0;
    /// Puts a pane right of the project tree.
    virtual void ShowPane(Pane pane) = 0;
    /// Carries out an action as the menu does.
    virtual void RunAction(ActionId id) = 0;
    /// Commits what is being edited in place, in a pane or as a label. False when it is refused, after a message to the
    /// user.
    [[nodiscard]] virtual bool TakeEdit() = 0;
    /// Calls it now, or after the command of an IDE that is running.
    virtual void AfterCommand(std::function<void()> call) = 0;
    /// Says whether the action is enabled, as the menu shows it.
    [[nodiscard]] virtual bool IsEnabled(ActionId id) const = 0;
    /// The panes of a layout have come into sight, or have gone.
    virtual void ShowLayoutMode(bool isOn) = 0;
    /// Shows the zoom of the preview in the status bar; empty for none.
    virtual void ShowZoom(const QString &zoom) = 0;

protected:
    ~IViewHost() = default;
};
