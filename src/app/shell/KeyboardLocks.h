// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>

#include <memory>

struct xcb_connection_t;

/// Knows which locks of the keyboard are on. Asks the X display, or otherwise reads the system's keyboard lights.
class KeyboardLocks
{
public:
    explicit KeyboardLocks(const char *folder = "/sys/class/leds");

    enum Lock
    {
        Caps,
        Num,
        Scroll,
        LOCKS,
    };
    /// Reads the present state of the locks.
    void Read();
    /// Whether a lock was on at the last reading; false if that isn't known.
    [[nodiscard]] bool IsOn(Lock lock) const { return isOn[lock]; }

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const;
    };
    std::unique_ptr<xcb_connection_t, Disconnect> display; // separate, not to disturb Qt's events; null without X
    QByteArrayList lights[LOCKS];                          // the files with the brightness of the lights
    bool isOn[LOCKS] = {};
};
