#pragma once

#include "CommandTarget.h"

#include <QPlainTextEdit>

/// The text of the Output bar: what loads, saves, imports and packs have to say.
///
/// It follows the newest line unless the user has put the caret elsewhere or selected something.
class CInfoPane : public QPlainTextEdit, public ICommandTarget
{
public:
    explicit CInfoPane(QWidget *parent = nullptr);

    /// Appends text as it comes, in parts of lines or in many lines. What comes in one go of the event loop is shown
    /// together.
    void Append(QStringView text);
    /// Shows what is held back.
    void Flush();
    /// Puts the caret behind the last line.
    void GoToEnd();

    [[nodiscard]] std::optional<CommandState> StateOf(int command) const override;
    void Run(int command) override;

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    QString pending;
};
