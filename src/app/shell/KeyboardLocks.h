#pragma once

#include <QByteArrayList>

#include <memory>

struct xcb_connection_t;

/// Says which locks of the keyboard are on: by what an X display knows, else by the lights that the system has for
/// them.
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
    /// Takes in how they stand now.
    void Read();
    /// How it stood at the last reading; false where nothing tells.
    [[nodiscard]] bool IsOn(Lock lock) const { return isOn[lock]; }

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const;
    };
    std::unique_ptr<xcb_connection_t, Disconnect> display; // its own, so that asking disturbs no event; null without X
    QByteArrayList lights[LOCKS];                          // the files that tell how bright they are
    bool isOn[LOCKS] = {};
};
