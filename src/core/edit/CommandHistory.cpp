// SPDX-License-Identifier: MIT
#include "CommandHistory.h"

#include <utility>

void CommandHistory::Record(std::unique_ptr<Command> command)
{
    if (undoList.size() >= maxUndo)
        undoList.pop_front();
    undoList.push_back(std::move(command));
}

void CommandHistory::Run(std::unique_ptr<Command> command)
{
    redoList.clear();
    if (command->Execute())
        Record(std::move(command));
}

void CommandHistory::Undo()
{
    if (undoList.empty())
        return;
    std::unique_ptr<Command> command = std::move(undoList.back());
    undoList.pop_back();
    if (command->Undo())
        redoList.push_back(std::move(command));
}

void CommandHistory::Redo()
{
    if (redoList.empty())
        return;
    std::unique_ptr<Command> command = std::move(redoList.back());
    redoList.pop_back();
    if (command->Execute())
        Record(std::move(command));
}

void CommandHistory::Clear()
{
    undoList.clear();
    redoList.clear();
}
