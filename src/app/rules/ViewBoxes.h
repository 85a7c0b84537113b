#pragma once

#include <QStringList>

#include <functional>

class QDialog;

enum class Answer
{
    Yes,
    No,
    Cancel,
};

/// The boxes and dialogs that a view has the user answer. While a command of an IDE runs none opens: messages come
/// after the command, a question is answered with No or Cancel, and a dialog is cancelled.
class IViewBoxes
{
public:
    /// Asks a question that Yes or No answers; No is the default.
    [[nodiscard]] virtual bool AskYesNo(const QString &question) = 0;
    /// The same with a third answer; Yes is the default.
    [[nodiscard]] virtual Answer AskYesNoCancel(const QString &question) = 0;
    /// Tells what is going to be done, and asks whether to go on; OK is the default. False: Cancel.
    [[nodiscard]] virtual bool AskOkCancel(const QString &question) = 0;
    /// Shows it once the view is through with what it does: a label that is being edited has been left by then. `then`
    /// is called when the user has closed the box; it must allow for its view being gone.
    virtual void ShowMessage(const QString &text, std::function<void()> then = nullptr) = 0;
    /// The paths of the files to read, absolute; none when the user cancels. They exist. `selectedFilter` counts the
    /// entries of the filter from 1; otherwise as `SaveFileDialog`.
    [[nodiscard]] virtual QStringList OpenFileDialog(const QString &filter, int selectedFilter, bool multiSelect,
                                                     const QString &initialName) = 0;
    /// The path of the file to write, absolute; empty when the user cancels. Asks before an existing file is chosen.
    /// `filter` has the form "Name|*.a; *.b|...||". A name without an extension gets that of the chosen entry's first
    /// pattern. `initialName` may be empty, and may have a path.
    [[nodiscard]] virtual QString SaveFileDialog(const QString &filter, const QString &initialName) = 0;
    /// Runs a dialog until it is closed. False unless the user accepts it.
    [[nodiscard]] virtual bool RunDialog(QDialog &dialog) = 0;

protected:
    ~IViewBoxes() = default;
};
