// SPDX-License-Identifier: MIT
#include "FindingsBar.h"

#include "SeverityIcons.h"
#include "UiIcons.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QToolButton>

namespace
{

constexpr std::array SEVERITIES{Severity::Error, Severity::Warning, Severity::Note};
constexpr const char *NAMES[] = {"Errors", "Warnings", "Notes"};
constexpr int ICON_SIDE = 16;
constexpr int MARGIN = 3;
constexpr int FIELD_LETTERS = 24;
constexpr int LEAST_LETTERS = 6;

} // namespace

FindingsBar::FindingsBar(QWidget *parent)
    : QWidget(parent), levels(), text(new QLineEdit(this)), running(new QLabel(QStringLiteral("Checking\u2026"), this))
{
    auto *const line = new QHBoxLayout(this);
    line->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    line->setSpacing(MARGIN);
    for (size_t i = 0; i < levels.size(); ++i) {
        auto *const level = new QToolButton(this);
        level->setIcon(MakeIcon(IconOf(SEVERITIES[i])));
        level->setIconSize(QSize(ICON_SIDE, ICON_SIDE));
        level->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        level->setCheckable(true);
        level->setChecked(true);
        level->setAutoRaise(true);
        level->setFocusPolicy(Qt::TabFocus);
        level->setAccessibleName(QString::fromLatin1(NAMES[i]));
        connect(level, &QToolButton::toggled, this, [this] { Changed(); });
        line->addWidget(level);
        levels[i] = level;
    }
    text->setPlaceholderText(QStringLiteral("Filter"));
    text->setAccessibleName(QStringLiteral("Filter"));
    text->setClearButtonEnabled(true);
    text->setMinimumWidth(text->fontMetrics().averageCharWidth() * LEAST_LETTERS);
    text->setMaximumWidth(text->fontMetrics().averageCharWidth() * FIELD_LETTERS);
    text->installEventFilter(this);
    connect(text, &QLineEdit::textChanged, this, [this] { Changed(); });
    line->addWidget(text, 1);
    line->addWidget(running);
    line->addStretch(1);
    running->hide();
    setAccessibleName(QStringLiteral("Filter of Findings"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    line->setSizeConstraint(QLayout::SetNoConstraint); // see minimumSizeHint
    FitTexts();
}

FindingFilter FindingsBar::Filter() const
{
    return {levels[0]->isChecked(), levels[1]->isChecked(), levels[2]->isChecked(), text->text().trimmed()};
}

void FindingsBar::Clear()
{
    {
        const QScopedValueRollback clearing(isClearing, true);
        text->clear();
        for (QToolButton *level : levels)
            level->setChecked(true);
    }
    Changed();
}

void FindingsBar::ShowCounts(const FindingCounts &shown)
{
    if (shown == counts)
        return;
    counts = shown;
    FitTexts();
}

void FindingsBar::ShowRunning(bool isRunning)
{
    running->setVisible(isRunning);
}

/// Leaves the words out in a narrow bar.
void FindingsBar::FitTexts()
{
    int needed = text->minimumWidth() + 4 * MARGIN;
    for (const Severity severity : SEVERITIES)
        needed += fontMetrics().horizontalAdvance(CountText(counts, severity)) + ICON_SIDE + 6 * MARGIN;
    for (size_t i = 0; i < levels.size(); ++i) {
        const QString whole = CountText(counts, SEVERITIES[i]);
        levels[i]->setText(needed <= width() ? whole : whole.section(u' ', 0, 0));
        levels[i]->setToolTip(whole);
        levels[i]->setAccessibleDescription(whole);
    }
}

QSize FindingsBar::minimumSizeHint() const
{
    return {text->minimumWidth() + 3 * (ICON_SIDE + 4 * MARGIN), layout()->totalMinimumSize().height()};
}

void FindingsBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    FitTexts();
}

void FindingsBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitTexts();
}

void FindingsBar::Changed()
{
    if (!isClearing && filterChanged)
        filterChanged();
}

bool FindingsBar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto &key = static_cast<const QKeyEvent &>(*event);
    if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (key.key()) {
    case Qt::Key_Escape:
        text->clear();
        [[fallthrough]];
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (toList)
            toList();
        return true;
    default:
        return false;
    }
}
