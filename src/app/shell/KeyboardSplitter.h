#pragma once

#include <QSplitter>

/// A splitter whose bar the keyboard can move: once the bar has the focus the arrows move it, Enter leaves it where it
/// is, and Escape puts it back.
class KeyboardSplitter : public QSplitter
{
public:
    using QSplitter::QSplitter;

protected:
    QSplitterHandle *createHandle() override;
};
