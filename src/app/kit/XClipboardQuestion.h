// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>
#include <memory>

struct xcb_connection_t;
struct xcb_selection_notify_event_t;

/// Asks the owner of an X display's clipboard whether it has text, and doesn't wait for the answer.
class XClipboardQuestion : public QObject
{
public:
    /// The event loop calls `receiver` with the answer to the last question, if the owner answers.
    explicit XClipboardQuestion(std::function<void(bool hasText)> receiver);
    ~XClipboardQuestion() override;

    /// Asks the owner. Answers to earlier questions are ignored from now on.
    void Ask();

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const;
    };

    void ReadEvents();
    void Take(const xcb_selection_notify_event_t &answer);
    [[nodiscard]] quint32 Atom(const char *name) const;

    std::function<void(bool)> answered;
    std::unique_ptr<xcb_connection_t, Disconnect> display; // a separate connection: Qt doesn't see its events
    quint32 clipboardAtom = 0;
    quint32 targetsAtom = 0;
    QList<quint32> textAtoms;
    quint32 window = 0; // of the last question; 0 if there was none
};
