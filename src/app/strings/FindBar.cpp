// SPDX-License-Identifier: MIT
#include "FindBar.h"

#include "ColumnsButton.h"
#include "FilterChoice.h"
#include "StringGaps.h"
#include "StringTable.h"
#include "UiIcons.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QToolButton>
#include <QVBoxLayout>

namespace
{

constexpr int ICON_SIDE = 16;
constexpr int MARGIN = 4;
constexpr int FIELD_LETTERS = 22; // width of the text field with the choices beside it
constexpr int LEAST_LETTERS = 6;
constexpr int CHOICES_STRETCH = 2; // share of the room; the text has 1

const FilterChoice::Entry ALL_COLUMNS{QStringLiteral("All columns"), StringCondition::ANY_COLUMN,
                                      QStringLiteral("any")};
const FilterChoice::Entry NOT_MISSING{QStringLiteral("Missing in..."), StringCondition::NOWHERE, {}};

QToolButton *MakeButton(const QString &label, const QString &tip, QWidget *parent)
{
    auto *const button = new QToolButton(parent);
    button->setText(label);
    button->setToolTip(tip);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

QLineEdit *MakeField(const QString &name, QWidget *parent)
{
    auto *const field = new QLineEdit(parent);
    field->setPlaceholderText(name);
    field->setAccessibleName(name);
    field->setClearButtonEnabled(true);
    field->setMinimumWidth(field->fontMetrics().averageCharWidth() * LEAST_LETTERS);
    return field;
}

QString CountsText(int shown, int all)
{
    return QStringLiteral("%1 of %2 rows").arg(shown).arg(all);
}

} // namespace

FindBar::FindBar(QWidget *parent)
    : QWidget(parent), text(MakeField(QStringLiteral("Find"), this)),
      matchCase(MakeButton(QStringLiteral("Aa"), QStringLiteral("Match case"), this)), choices(new QWidget(this)),
      column(new FilterChoice(QStringLiteral("Column"), QStringLiteral("In "), choices)),
      missingIn(new FilterChoice(QStringLiteral("Missing in"), QStringLiteral("Missing in "), choices)),
      kind(new FilterChoice(QStringLiteral("Kind"), QString(), choices)), columns(new ColumnsButton(choices)),
      counts(new QLabel(this)), close(MakeButton({}, QStringLiteral("Close (Escape)"), this)),
      replaceLine(new QWidget(this)), replacement(MakeField(QStringLiteral("Replace with"), replaceLine)),
      replace(MakeButton(QStringLiteral("Replace All..."), QStringLiteral("Replace in the visible rows"), replaceLine))
{
    setAccessibleName(QStringLiteral("Find Bar"));
    MakeChoices();
    MakeReplacement();
    MakeButtons();
    LayOut();
    ShowCounts(0, 0);
}

void FindBar::MakeChoices()
{
    using Kind = StringCondition::Kind;
    kind->SetEntries({{QStringLiteral("All kinds"), int(Kind::Any), QStringLiteral("any")},
                      {QStringLiteral("Normal"), int(Kind::Normal), QStringLiteral("normal")},
                      {QStringLiteral("Push"), int(Kind::Push), QStringLiteral("push")}});
    column->SetEntries({ALL_COLUMNS});
    missingIn->SetEntries({NOT_MISSING});
    for (const FilterChoice *choice : {column, missingIn, kind})
        connect(choice, &QComboBox::currentIndexChanged, this, [this] { Changed(); });
    columns->hideColumn = [this](int which, bool hide) {
        if (hideColumn)
            hideColumn(which, hide);
    };
}

void FindBar::MakeReplacement()
{
    for (QLineEdit *field : {text, replacement})
        field->installEventFilter(this);
    connect(text, &QLineEdit::textChanged, this, [this] { Changed(); });
    connect(replace, &QToolButton::clicked, this, [this] {
        if (replaceAll)
            replaceAll();
    });
    replace->setEnabled(false);
    replaceLine->hide();
}

void FindBar::MakeButtons()
{
    matchCase->setCheckable(true);
    matchCase->setAccessibleName(matchCase->toolTip());
    connect(matchCase, &QToolButton::toggled, this, [this] { Changed(); });
    close->setIcon(MakeIcon(UiIcon::Close));
    close->setIconSize(QSize(ICON_SIDE, ICON_SIDE));
    close->setAutoRaise(true);
    close->setAccessibleName(QStringLiteral("Close the find bar"));
    connect(close, &QToolButton::clicked, this, [this] { Close(); });
}

void FindBar::LayOut()
{
    const auto makeLine = [](QWidget *in, std::initializer_list<QWidget *> widgets) {
        auto *const line = new QHBoxLayout(in);
        line->setContentsMargins(0, 0, 0, 0);
        line->setSpacing(MARGIN);
        for (QWidget *widget : widgets)
            line->addWidget(widget);
        return line;
    };
    makeLine(choices, {column, missingIn, kind, columns});
    makeLine(replaceLine, {replacement, replace});
    firstLine = makeLine(nullptr, {text, matchCase, choices, counts, close});
    firstLine->setStretchFactor(choices, CHOICES_STRETCH);
    secondLine = makeLine(nullptr, {});
    auto *const lines = new QVBoxLayout(this);
    lines->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    lines->setSpacing(MARGIN);
    lines->setSizeConstraint(QLayout::SetNoConstraint); // see minimumSizeHint
    lines->addLayout(firstLine);
    lines->addWidget(replaceLine);
    lines->addLayout(secondLine);
    firstLine->setStretchFactor(text, 1);
    choices->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setTabOrder(text, replacement);
    setTabOrder(replacement, replace);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize FindBar::minimumSizeHint() const
{
    const int first = text->minimumSizeHint().width() + matchCase->sizeHint().width() + counts->minimumWidth() +
                      close->sizeHint().width() + 3 * MARGIN;
    const int widest = qMax(first, choices->minimumSizeHint().width());
    return {widest + 2 * MARGIN, layout()->totalMinimumSize().height()};
}

void FindBar::FitLines()
{
    const int field = fontMetrics().averageCharWidth() * FIELD_LETTERS;
    const int needed = field + matchCase->sizeHint().width() + choices->sizeHint().width() + counts->minimumWidth() +
                       close->sizeHint().width() + 6 * MARGIN;
    QBoxLayout *const line = width() < needed ? secondLine : firstLine;
    if (line->indexOf(choices) >= 0)
        return;
    (line == firstLine ? secondLine : firstLine)->removeWidget(choices);
    line->insertWidget(line == firstLine ? 2 : 0, choices, CHOICES_STRETCH);
    layout()->invalidate();
    updateGeometry(); // the height has changed
}

/// Makes the counts wide enough for all values, so that the fields don't move while the user types.
void FindBar::FitCounts()
{
    counts->setMinimumWidth(counts->fontMetrics().horizontalAdvance(CountsText(allRows, allRows)));
    FitLines();
}

void FindBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    FitLines();
}

void FindBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (firstLine && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange))
        FitCounts();
}

StringCondition FindBar::Condition() const
{
    return {text->text(), matchCase->isChecked(), column->Value(), missingIn->Value(),
            StringCondition::Kind(kind->Value())};
}

QString FindBar::Replacement() const
{
    return replacement->text();
}

void FindBar::Fill(const StringTable &table)
{
    QStringList titles;
    std::vector<FilterChoice::Entry> inColumns{ALL_COLUMNS};
    std::vector<FilterChoice::Entry> missing{NOT_MISSING};
    const std::vector<int> gaps = CountGaps(table);
    for (int col = 0; col < table.ColumnCount(); ++col) {
        const QString title = table.ColumnTitle(col);
        titles.append(title);
        const int place = col - StringTable::FIRST_LANGUAGE_COLUMN;
        const QString key = place < 0 ? title : QString::number(table.Languages()[size_t(place)]);
        inColumns.push_back({title, col, key});
        if (place >= 0)
            missing.push_back({title + QStringLiteral(" (%1)").arg(gaps[size_t(place)]), col, key});
    }
    column->SetEntries(inColumns);
    missingIn->SetEntries(missing);
    columns->SetTitles(titles);
    Changed();
}

void FindBar::ShowCounts(int shown, int all)
{
    counts->setText(CountsText(shown, all));
    allRows = all;
    FitCounts();
}

void FindBar::ShowHidden(const std::vector<bool> &hidden)
{
    columns->SetHidden(hidden);
}

void FindBar::Clear()
{
    {
        const QScopedValueRollback filling(isFilling, true);
        text->clear();
        replacement->clear();
        matchCase->setChecked(false);
        for (FilterChoice *choice : {column, missingIn, kind})
            choice->setCurrentIndex(0);
    }
    Changed();
}

void FindBar::FocusText()
{
    text->setFocus(Qt::ShortcutFocusReason);
    text->selectAll();
}

void FindBar::ShowReplace(bool show)
{
    replaceLine->setVisible(show);
}

void FindBar::Changed()
{
    if (isFilling)
        return;
    const StringCondition now = Condition();
    if (now == told)
        return;
    told = now;
    replace->setEnabled(!now.text.isEmpty());
    if (conditionChanged)
        conditionChanged();
}

void FindBar::Close()
{
    Clear();
    if (closed)
        closed();
}

bool FindBar::TakeKey(const QKeyEvent &event, const QObject *in)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier)
        return false;
    const bool isShift = modifiers == Qt::ShiftModifier;
    switch (event.key()) {
    case Qt::Key_Escape:
        if (!isShift)
            Close();
        return !isShift;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (in == replacement) {
            replace->click();
            return true;
        }
        [[fallthrough]];
    case Qt::Key_F3:
        if (findNext)
            findNext(isShift);
        return true;
    case Qt::Key_Down:
        if (!in || isShift)
            return false;
        if (toGrid)
            toGrid();
        return true;
    default:
        return false;
    }
}

/// Handles keys that a field would otherwise consume or pass elsewhere.
bool FindBar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && TakeKey(*static_cast<QKeyEvent *>(event), watched))
        return true;
    return QWidget::eventFilter(watched, event);
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    if (!TakeKey(*event, nullptr))
        QWidget::keyPressEvent(event);
}
