#pragma once

#include <QObject>

#include <memory>
#include <optional>

class XClipboardQuestion;

/// Says whether the clipboard has text, without ever waiting for the program that owns it.
///
/// It follows the clipboard's changes and asks at most once for each, when somebody wants to know. On an X display the
/// owner is another program, which may not answer: until it does the answer is no.
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
