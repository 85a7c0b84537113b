// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <memory>
#include <optional>

class XClipboardQuestion;

/// Knows whether the clipboard has text. Never waits for the program that owns the clipboard.
///
/// It follows the clipboard's changes, and asks the owner at most once after each change, when a caller wants to know.
/// On an X display the owner is another program, which may not answer. Until it does, the answer is no.
class ClipboardText : public QObject
{
public:
    ClipboardText();
    ~ClipboardText() override;

    [[nodiscard]] bool HasText();

private:
    void Ask();

    std::optional<bool> known;                    // nothing since the last change
    bool isAsked = false;                         // since the last change
    std::unique_ptr<XClipboardQuestion> question; // null without an X display
};
