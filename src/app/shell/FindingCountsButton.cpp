// SPDX-License-Identifier: MIT
#include "FindingCountsButton.h"

#include "FindingTexts.h"
#include "SeverityIcons.h"
#include "UiIcons.h"

namespace
{

constexpr int SHARE = 5; // the text has at most a fifth of the status bar

UiIcon IconFor(const FindingCounts &counts)
{
    if (counts == FindingCounts())
        return UiIcon::None;
    return IconOf(counts.errors > 0 ? Severity::Error : counts.warnings > 0 ? Severity::Warning : Severity::Note);
}

} // namespace

FindingCountsButton::FindingCountsButton(QWidget *parent) : QToolButton(parent)
{
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus); // the keys F8 and F6 lead to the findings
    const int side = qMin(16, fontMetrics().height());
    setIconSize(QSize(side, side));
    setFixedHeight(fontMetrics().height() + 2); // as high as the other fields, so that the bar keeps its height
    setStatusTip(QStringLiteral("Shows the findings."));
    hide();
}

void FindingCountsButton::Show(const std::optional<FindingCounts> &shown, bool isRunning)
{
    const int width = parentWidget()->width();
    if (shown == counts && isRunning == isFirstRun && width == room)
        return;
    counts = shown;
    isFirstRun = isRunning;
    room = width;
    setVisible(counts.has_value());
    if (!counts)
        return;
    const bool hasNone = isFirstRun && *counts == FindingCounts();
    const QString all = hasNone ? QStringLiteral("Checking\u2026") : CountsText(*counts);
    const bool hasRoom = fontMetrics().horizontalAdvance(all) <= room / SHARE;
    setIcon(MakeIcon(IconFor(*counts)));
    setText(hasRoom || hasNone ? all : ShortCountsText(*counts));
    setAccessibleName(QStringLiteral("Findings: ") + all);
    setToolTip(all);
}
