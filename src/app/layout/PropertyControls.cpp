// SPDX-License-Identifier: MIT
#include "PropertyControls.h"

#include "CListGrid.h"
#include "ColorButton.h"
#include "LineEndGuard.h"
#include "ViewBoxes.h"

#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace
{

constexpr EditControl IN_ORDER_OF_FOCUS[] = {EditControl::Text0, EditControl::Text1,   EditControl::Text2,
                                             EditControl::Text3, EditControl::Choices, EditControl::Swatch};

bool IsText(EditControl control)
{
    return control >= EditControl::Text0 && control <= EditControl::Text3;
}

bool IsLabel(EditControl control)
{
    return control >= EditControl::Label0 && control <= EditControl::Label3;
}

int NumberOf(EditControl control)
{
    return int(control) - int(IsLabel(control) ? EditControl::Label0 : EditControl::Text0);
}

/// Limits the numbers to 0 to 255, because the user can type others.
QColor ColorOf(const EditColor &color)
{
    const auto part = [](int value) { return qBound(0, value, 255); };
    return {part(color.red), part(color.green), part(color.blue)};
}

bool IsMouseButton(QEvent::Type type)
{
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
           type == QEvent::MouseButtonDblClick;
}

} // namespace

/// Widgets that are made later are in front, so the backdrop is the first.
PropertyControls::PropertyControls(CListGrid &listGrid, IViewBoxes &viewBoxes)
    : QObject(&listGrid), grid(listGrid), boxes(viewBoxes), backdrop(new QWidget(listGrid.viewport()))
{
    backdrop->setAutoFillBackground(true);
    backdrop->setBackgroundRole(QPalette::Window); // the edges of the text boxes are visible on it
    MakeFields();
    MakeChoices();
    MakeSwatch();
    // A click between the fields leaves the focus where it is.
    backdrop->setFocusPolicy(Qt::ClickFocus);
    backdrop->setFocusProxy(fields[0].text);
    for (int control = int(EditControl::Text0); control <= int(EditControl::Backdrop); ++control) {
        Widget(EditControl(control))->hide();
        Widget(EditControl(control))->installEventFilter(this);
    }
    grid.installEventFilter(this);
    grid.viewport()->installEventFilter(this);
}

void PropertyControls::MakeFields()
{
    for (int i = 0; i < FIELDS; ++i) {
        auto *const label = new QLabel(grid.viewport());
        auto *const text = new QLineEdit(grid.viewport());
        fields[size_t(i)] = {label, text, new LineEndGuard(*text)};
        label->setTextFormat(Qt::PlainText);
        label->setFocusPolicy(Qt::ClickFocus);
        label->setFocusProxy(text);
        connect(text, &QLineEdit::textEdited, this, [this, i] { Tell(TextOf(i), EditEvent::TextChanged); });
    }
}

void PropertyControls::MakeChoices()
{
    choiceList = new QComboBox(grid.viewport());
    choiceList->setInsertPolicy(QComboBox::NoInsert);
    choiceList->setFocusPolicy(Qt::StrongFocus); // no focus by the wheel
    // This policy doesn't measure each entry; there may be thousands.
    choiceList->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    if (auto *const list = qobject_cast<QListView *>(choiceList->view()))
        list->setUniformItemSizes(true);
    connect(choiceList, &QComboBox::activated, this, [this] { Tell(EditControl::Choices, EditEvent::TextChanged); });
}

void PropertyControls::MakeSwatch()
{
    swatch = new ColorButton(grid.viewport());
    swatch->setFocusPolicy(Qt::StrongFocus);
    connect(swatch, &QAbstractButton::clicked, this, [this] { Tell(EditControl::Swatch, EditEvent::Clicked); });
}

QWidget *PropertyControls::Widget(EditControl control) const
{
    if (IsText(control))
        return fields[size_t(NumberOf(control))].text;
    if (IsLabel(control))
        return fields[size_t(NumberOf(control))].label;
    switch (control) {
    case EditControl::Choices:
        return choiceList;
    case EditControl::Swatch:
        return swatch;
    case EditControl::Backdrop:
        return backdrop;
    default:
        return &grid;
    }
}

std::optional<EditControl> PropertyControls::ControlOf(const QObject *widget) const
{
    for (int control = int(EditControl::Grid); control <= int(EditControl::Backdrop); ++control) {
        if (Widget(EditControl(control)) == widget)
            return EditControl(control);
    }
    return std::nullopt;
}

PropertyControls::Field &PropertyControls::FieldOf(EditControl text)
{
    return fields[size_t(NumberOf(text))];
}

const PropertyControls::Field &PropertyControls::FieldOf(EditControl text) const
{
    return fields[size_t(NumberOf(text))];
}

void PropertyControls::Tell(EditControl control, EditEvent event)
{
    if (told)
        told(control, event);
}

void PropertyControls::SetName(const QString &property)
{
    for (const Field &field : fields) {
        QString part = field.label->text();
        part.remove(u':');
        field.text->setAccessibleName(field.label->isHidden() ? property : property + u", "_s + part);
    }
    choiceList->setAccessibleName(property);
    swatch->setAccessibleName(property + u", color"_s);
    backdrop->setFocusProxy(fields[0].text);
}

bool PropertyControls::Have(const QWidget *widget) const
{
    while (widget && widget->parentWidget() != grid.viewport())
        widget = widget->parentWidget();
    return widget && ControlOf(widget);
}

void PropertyControls::Focus(EditControl control)
{
    Widget(control)->setFocus(Qt::TabFocusReason); // this reason selects the text
}

bool PropertyControls::FocusNext(EditControl from, int step)
{
    constexpr int COUNT = int(std::size(IN_ORDER_OF_FOCUS));
    const auto *const here = std::find(std::begin(IN_ORDER_OF_FOCUS), std::end(IN_ORDER_OF_FOCUS), from);
    for (int next = int(here - IN_ORDER_OF_FOCUS) + step; next >= 0 && next < COUNT; next += step) {
        if (!Widget(IN_ORDER_OF_FOCUS[next])->isHidden()) {
            Focus(IN_ORDER_OF_FOCUS[next]);
            return true;
        }
    }
    return false;
}

void PropertyControls::Type(EditControl control, const QKeyEvent &key)
{
    QKeyEvent copy(key.type(), key.key(), key.modifiers(), key.text(), key.isAutoRepeat(), ushort(key.count()));
    QApplication::sendEvent(Widget(control), &copy);
}

void PropertyControls::Show(EditControl control, const QRect &place)
{
    Widget(control)->setGeometry(place);
    Widget(control)->show();
}

void PropertyControls::Hide(EditControl control)
{
    if (control == EditControl::Choices)
        choiceList->hidePopup();
    Widget(control)->hide();
}

void PropertyControls::SetText(EditControl control, const QString &text)
{
    Field &field = FieldOf(control);
    if (IsLabel(control))
        return field.label->setText(text);
    field.text->setMaxLength(qMax(field.limit, int(text.size()))); // first: the text must not be cut
    field.line->SetText(text);
}

QString PropertyControls::Text(EditControl control) const
{
    const Field &field = FieldOf(control);
    return IsLabel(control) ? field.label->text() : field.text->text();
}

void PropertyControls::SetLimit(EditControl control, int characters)
{
    Field &field = FieldOf(control);
    field.limit = characters;
    field.text->setMaxLength(qMax(characters, int(field.text->text().size())));
}

void PropertyControls::SelectAll(EditControl control)
{
    FieldOf(control).text->selectAll();
}

bool PropertyControls::HasFocus(EditControl control) const
{
    return Widget(control)->hasFocus();
}

int PropertyControls::WidthOf(const QString &text) const
{
    return grid.fontMetrics().horizontalAdvance(text);
}

void PropertyControls::SetChoices(const QStringList &choices)
{
    choiceList->clear();
    choiceList->addItems(choices);
    choiceList->setCurrentIndex(-1);
}

int PropertyControls::Choice() const
{
    return choiceList->currentIndex();
}

void PropertyControls::Choose(int choice)
{
    choiceList->setCurrentIndex(choice);
}

void PropertyControls::SetSwatch(const EditColor &color)
{
    swatch->ShowColor(ColorOf(color));
}

std::optional<EditColor> PropertyControls::AskColor(const EditColor &start)
{
    QColorDialog dialog(ColorOf(start), grid.window());
    if (!boxes.RunDialog(dialog) || swatch->isHidden()) // the editor may have been closed meanwhile
        return std::nullopt;
    const QColor chosen = dialog.selectedColor();
    return EditColor{chosen.red(), chosen.green(), chosen.blue()};
}

void PropertyControls::FocusWentFrom(EditControl control, Qt::FocusReason reason)
{
    const bool isMenu = reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
    if (!isMenu && !Have(QApplication::focusWidget()))
        Tell(control, EditEvent::FocusLost);
}

bool PropertyControls::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (watched == grid.viewport())
        return type == QEvent::KeyPress; // a key that a control hasn't used must not reach the list
    const auto control = ControlOf(watched);
    if (!control)
        return false;
    if (*control == EditControl::Backdrop || IsLabel(*control))
        return IsMouseButton(type); // the cell below must not receive the click
    if (type == QEvent::Wheel && *control == EditControl::Choices) {
        event->ignore(); // so that the list scrolls
        return true;
    }
    if (type == QEvent::KeyPress)
        return keyPressed && keyPressed(*control, *static_cast<QKeyEvent *>(event));
    if (type == QEvent::FocusIn && IsText(*control))
        backdrop->setFocusProxy(FieldOf(*control).text);
    if (type == QEvent::FocusOut)
        FocusWentFrom(*control, static_cast<QFocusEvent *>(event)->reason());
    return false;
}
