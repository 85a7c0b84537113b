// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"

#include <QPlainTextEdit>

#include <deque>

/// The text of the Output bar: the output of loading, saving, importing and packing.
///
/// It scrolls to the newest line, unless the user has moved the caret elsewhere or selected something.
class CInfoPane : public QPlainTextEdit, public IActionTarget
{
public:
    explicit CInfoPane(QWidget *parent = nullptr);

    /// Appends text, which may be a part of a line or many lines. The text is shown a piece at a time when the event
    /// loop has nothing more urgent to do, so that a large amount of output doesn't block the window.
    void Append(QStringView text);
    /// Shows all text that is still pending.
    void Flush();
    /// Moves the caret to the end of the text.
    void GoToEnd();

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    [[nodiscard]] QMimeData *createMimeDataFromSelection() const override;

private:
    void ShowLater();
    void ShowPiece();
    void Show(QString text);

    std::deque<QString> pending; // pieces of whole lines, except the last
    bool isWaiting = false;      // for the event loop to show the pending text
};
