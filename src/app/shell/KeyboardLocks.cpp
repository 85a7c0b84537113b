#include "KeyboardLocks.h"

#include <QDir>
#include <QFile>

KeyboardLocks::KeyboardLocks(const char *folder)
{
    static constexpr const char *NAMES[] = {"*::capslock", "*::numlock", "*::scrolllock"};
    const QDir leds(QString::fromUtf8(folder));
    for (int lock = 0; lock < LOCKS; ++lock) {
        for (const QString &name : leds.entryList({QString::fromLatin1(NAMES[lock])}, QDir::AllEntries))
            lights[lock].append(QFile::encodeName(leds.filePath(name) + QStringLiteral("/brightness")));
    }
}

bool KeyboardLocks::IsOn(Lock lock) const
{
    for (const QByteArray &light : lights[lock]) {
        QFile file(QFile::decodeName(light));
        if (file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) && file.read(8).trimmed().toInt() > 0)
            return true;
    }
    return false;
}
