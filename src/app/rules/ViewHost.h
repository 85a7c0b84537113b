#pragma once

#include "Actions.h"

#include <QString>

enum class Pane;

enum class Answer
{
    Yes,
    No,
    Cancel,
};

/// What views ask of the window they stand in.
class IViewHost
{
public:
    /// Asks a question that Yes or No answers; No is the default.
    [[nodiscard]] virtual bool AskYesNo(const QString &question) = 0;
    /// The same with a third answer; Yes is the default.
    [[nodiscard]] virtual Answer AskYesNoCancel(const QString &question) = 0;
    /// Shows it once the view is through with what it does: a label that is being edited has been left by then.
    virtual void ShowMessage(const QString &text) = 0;
    /// Puts a pane right of the project tree.
    virtual void ShowPane(Pane pane) = 0;
    /// Carries out an action as the menu does.
    virtual void RunAction(ActionId id) = 0;
    /// Says whether the action is enabled, as the menu shows it.
    [[nodiscard]] virtual bool IsEnabled(ActionId id) const = 0;

protected:
    ~IViewHost() = default;
};
