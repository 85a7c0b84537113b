// SPDX-License-Identifier: MIT
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

/// The message boxes and dialogs that a view can open. While a command of an IDE runs, none opens: messages are shown
/// after the command, questions are answered with No or Cancel, and dialogs are cancelled.
class IViewBoxes
{
public:
    /// Asks a question with the answers Yes and No; No is the default.
    [[nodiscard]] virtual bool AskYesNo(const QString &question) = 0;
    /// Asks a question with the answers Yes, No and Cancel; Yes is the default.
    [[nodiscard]] virtual Answer AskYesNoCancel(const QString &question) = 0;
    /// Says what is about to be done, and asks whether to continue; OK is the default. Returns false for Cancel.
    [[nodiscard]] virtual bool AskOkCancel(const QString &question) = 0;
    /// Shows a message once the view has finished its present operation; the editing of a label has ended by then.
    /// `then` is called after the user has closed the box. The view may no longer exist at that time.
    virtual void ShowMessage(const QString &text, std::function<void()> then = nullptr) = 0;
    /// Asks for files to read. Returns absolute paths of existing files; none if the user cancels. `selectedFilter` is
    /// the number of the filter's entry, from 1. Otherwise like `SaveFileDialog`.
    [[nodiscard]] virtual QStringList OpenFileDialog(const QString &filter, int selectedFilter, bool multiSelect,
                                                     const QString &initialName) = 0;
    /// Asks for a file to write. Returns its absolute path; empty if the user cancels. The user must confirm the choice
    /// of an existing file. `filter` has the form "Name|*.a; *.b|...||". A name without an extension gets that of the
    /// chosen entry's first pattern. `initialName` may be empty, and may have a path.
    [[nodiscard]] virtual QString SaveFileDialog(const QString &filter, const QString &initialName) = 0;
    /// Runs a dialog until it is closed. Returns whether the user accepted it.
    [[nodiscard]] virtual bool RunDialog(QDialog &dialog) = 0;

protected:
    ~IViewBoxes() = default;
};
