#pragma once

#include "ActionTarget.h"

#include <QPlainTextEdit>

#include <deque>

/// The text of the Output bar: what loads, saves, imports and packs have to say.
///
/// It follows the newest line unless the user has put the caret elsewhere or selected something.
class CInfoPane : public QPlainTextEdit, public IActionTarget
{
public:
    explicit CInfoPane(QWidget *parent = nullptr);

    /// Appends text as it comes, in parts of lines or in many lines. It shows when the event loop has nothing more
    /// urgent to do, a piece at a time, so that a flood of lines holds up nothing else.
    void Append(QStringView text);
    /// Shows all that is held back.
    void Flush();
    /// Puts the caret behind the last line.
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

    std::deque<QString> pending; // pieces of whole lines, but for the last
    bool isWaiting = false;      // for the event loop
};
