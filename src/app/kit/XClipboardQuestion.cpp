// SPDX-License-Identifier: MIT
#include "XClipboardQuestion.h"

#include <QSocketNotifier>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>

namespace
{

struct Free
{
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T> using Reply = std::unique_ptr<T, Free>;

// The formats in which a program offers text. A list of files counts as text too, as it does for pasting.
constexpr const char *TEXT_FORMS[] = {
    "UTF8_STRING", "STRING", "TEXT", "COMPOUND_TEXT", "text/plain", "text/plain;charset=utf-8", "text/uri-list",
};

} // namespace

void XClipboardQuestion::Disconnect::operator()(xcb_connection_t *connection) const
{
    xcb_disconnect(connection);
}

XClipboardQuestion::XClipboardQuestion(std::function<void(bool)> receiver)
    : answered(std::move(receiver)), display(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(display.get()))
        return;
    clipboardAtom = Atom("CLIPBOARD");
    targetsAtom = Atom("TARGETS");
    for (const char *form : TEXT_FORMS)
        textAtoms.append(Atom(form));
    auto *const events = new QSocketNotifier(xcb_get_file_descriptor(display.get()), QSocketNotifier::Read, this);
    connect(events, &QSocketNotifier::activated, this, [this, events] {
        ReadEvents();
        if (xcb_connection_has_error(display.get()))
            events->setEnabled(false);
    });
}

XClipboardQuestion::~XClipboardQuestion()
{
    qDeleteAll(children()); // the notifier must go before the connection that it watches
}

quint32 XClipboardQuestion::Atom(const char *name) const
{
    const auto request = xcb_intern_atom(display.get(), 0, quint16(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(display.get(), request, nullptr));
    return reply ? reply->atom : 0;
}

void XClipboardQuestion::Ask()
{
    if (xcb_connection_has_error(display.get()))
        return;
    // Each question has its own window, so that the answer to an earlier question goes to a window that no longer
    // exists.
    if (window != 0)
        xcb_destroy_window(display.get(), window);
    window = xcb_generate_id(display.get());
    const xcb_screen_t *const screen = xcb_setup_roots_iterator(xcb_get_setup(display.get())).data;
    xcb_create_window(display.get(), 0, window, screen->root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_convert_selection(display.get(), window, clipboardAtom, targetsAtom, targetsAtom, XCB_CURRENT_TIME);
    xcb_flush(display.get());
}

void XClipboardQuestion::ReadEvents()
{
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(display.get())}) {
        if ((event->response_type & 0x7F) == XCB_SELECTION_NOTIFY)
            Take(*reinterpret_cast<const xcb_selection_notify_event_t *>(event.get()));
    }
}

void XClipboardQuestion::Take(const xcb_selection_notify_event_t &answer)
{
    constexpr quint32 MOST_FORMS = 1024;
    if (answer.requestor != window)
        return;
    bool hasText = false;
    if (answer.property != XCB_ATOM_NONE) {
        const auto request = xcb_get_property(display.get(), 1, window, answer.property, XCB_ATOM_ATOM, 0, MOST_FORMS);
        const Reply<xcb_get_property_reply_t> forms(xcb_get_property_reply(display.get(), request, nullptr));
        if (forms && forms->format == 32) {
            const auto *const first = static_cast<const xcb_atom_t *>(xcb_get_property_value(forms.get()));
            hasText = std::any_of(first, first + forms->value_len,
                                  [this](xcb_atom_t form) { return textAtoms.contains(form); });
        }
    }
    answered(hasText);
}
