#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <vector>

/// An edit of strings that can be taken back.
class Command
{
public:
    virtual ~Command() = default;
    /// Does the edit, or does it again. True on success.
    virtual bool Execute() = 0;
    /// Takes it back. True on success.
    virtual bool Undo() = 0;
};

/// The edits that can be taken back and those that can be done again, newest last. Owns them.
class CommandHistory
{
public:
    explicit CommandHistory(size_t mostUndo = 100) : maxUndo(mostUndo) {}

    /// Executes a new command and records it; one that fails is dropped. What could be done again is gone either way.
    void Run(std::unique_ptr<Command> command);
    /// Does nothing when there is nothing to take back. A command that fails is dropped.
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
