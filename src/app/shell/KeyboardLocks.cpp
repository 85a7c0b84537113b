// SPDX-License-Identifier: MIT
#include "KeyboardLocks.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>

#include <cstdlib>
#include <xcb/xcb.h>

KeyboardLocks::KeyboardLocks(const char *folder)
{
    if (QGuiApplication::platformName() == QLatin1String("xcb"))
        display.reset(xcb_connect(nullptr, nullptr));
    static constexpr const char *NAMES[] = {"*::capslock", "*::numlock", "*::scrolllock"};
    const QDir leds(QString::fromUtf8(folder));
    for (int lock = 0; lock < LOCKS; ++lock) {
        for (const QString &name : leds.entryList({QString::fromLatin1(NAMES[lock])}, QDir::AllEntries))
            lights[lock].append(QFile::encodeName(leds.filePath(name) + QStringLiteral("/brightness")));
    }
}

void KeyboardLocks::Disconnect::operator()(xcb_connection_t *connection) const
{
    xcb_disconnect(connection);
}

void KeyboardLocks::Read()
{
    if (display && !xcb_connection_has_error(display.get())) {
        // The first three lights of a keyboard are these locks, in this order.
        auto *const reply =
            xcb_get_keyboard_control_reply(display.get(), xcb_get_keyboard_control(display.get()), nullptr);
        for (int lock = 0; reply && lock < LOCKS; ++lock)
            isOn[lock] = (reply->led_mask >> lock) & 1;
        return std::free(reply);
    }
    for (int lock = 0; lock < LOCKS; ++lock) {
        isOn[lock] = false;
        for (const QByteArray &light : lights[lock]) {
            QFile file(QFile::decodeName(light));
            if (file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) && file.read(8).trimmed().toInt() > 0)
                isOn[lock] = true;
        }
    }
}
