// SPDX-License-Identifier: MIT
#include "ClipboardText.h"

#include "XClipboardQuestion.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

ClipboardText::ClipboardText()
{
    if (QGuiApplication::platformName() == QLatin1String("xcb"))
        question = std::make_unique<XClipboardQuestion>([this](bool hasText) { known = hasText; });
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] {
        known = std::nullopt;
        isAsked = false;
    });
}

ClipboardText::~ClipboardText() = default;

bool ClipboardText::HasText()
{
    if (!std::exchange(isAsked, true))
        Ask();
    return known.value_or(false);
}

void ClipboardText::Ask()
{
    const QClipboard &clipboard = *QGuiApplication::clipboard();
    if (question && !clipboard.ownsClipboard())
        return question->Ask();
    // The clipboard's content is available here if this program has copied it, or under Wayland or in a test.
    const QMimeData *const content = clipboard.mimeData();
    known = content && content->hasText();
}
