// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <vector>

/// An edit of strings that can be undone.
class Command
{
public:
    virtual ~Command() = default;
    /// Does or redoes the edit. Returns true on success.
    virtual bool Execute() = 0;
    /// Undoes the edit. Returns true on success.
    virtual bool Undo() = 0;
};

/// Owns the edits that can be undone and those that can be redone.
class CommandHistory
{
public:
    explicit CommandHistory(size_t mostUndo = 100) : maxUndo(mostUndo) {}

    /// Executes a new command and records it; drops it if it fails. In both cases nothing can be redone after that.
    void Run(std::unique_ptr<Command> command);
    /// Undoes the newest command. Does nothing when there is nothing to undo. Drops a command that fails.
    void Undo();
    void Redo();
    void Clear();

    [[nodiscard]] bool CanUndo() const { return !undoList.empty(); }
    [[nodiscard]] bool CanRedo() const { return !redoList.empty(); }

private:
    void Record(std::unique_ptr<Command> command);

    size_t maxUndo;
    std::deque<std::unique_ptr<Command>> undoList;
    std::vector<std::unique_ptr<Command>> redoList;
};
