#pragma once

#include <QByteArrayList>

/// Says which locks of the keyboard are on, by the lights that the system has for them.
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
    /// False too where there is no such light.
    [[nodiscard]] bool IsOn(Lock lock) const;

private:
    QByteArrayList lights[LOCKS]; // the files that tell how bright they are
};
