// SPDX-License-Identifier: MIT
#include "KeyboardIndicators.h"

#include <QKeyEvent>
#include <QLabel>
#include <QStatusBar>
#include <QTimer>

namespace
{

struct Field
{
    const char *text;
    const char *name;
};
constexpr Field FIELDS[KeyboardLocks::LOCKS] = {{"CAP", "Caps Lock"}, {"NUM", "Num Lock"}, {"SCRL", "Scroll Lock"}};

} // namespace

KeyboardIndicators::KeyboardIndicators(QStatusBar &bar)
{
    for (int lock = 0; lock < KeyboardLocks::LOCKS; ++lock) {
        auto *const label = new QLabel(QString::fromLatin1(FIELDS[lock].text), &bar);
        label->setAccessibleName(QString::fromLatin1(FIELDS[lock].name));
        label->setMinimumWidth(label->sizeHint().width() + 8);
        label->setAlignment(Qt::AlignCenter);
        bar.addPermanentWidget(label);
        labels[lock] = label;
    }
    bar.window()->installEventFilter(this);
    Update();
}

void KeyboardIndicators::Update()
{
    locks.Read();
    for (int lock = 0; lock < KeyboardLocks::LOCKS; ++lock) {
        const bool isOn = locks.IsOn(KeyboardLocks::Lock(lock));
        labels[lock]->setText(isOn ? QString::fromLatin1(FIELDS[lock].text) : QString());
        labels[lock]->setAccessibleDescription(isOn ? QStringLiteral("on") : QStringLiteral("off"));
    }
}

bool KeyboardIndicators::eventFilter(QObject *watched, QEvent *event)
{
    constexpr int LIGHTS_TAKE_MS = 50;
    if (event->type() == QEvent::ActivationChange) {
        Update(); // the locks may have been changed in another program
    } else if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_CapsLock || key == Qt::Key_NumLock || key == Qt::Key_ScrollLock)
            QTimer::singleShot(LIGHTS_TAKE_MS, this, [this] { Update(); });
    }
    return QObject::eventFilter(watched, event);
}
