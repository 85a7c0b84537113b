// SPDX-License-Identifier: MIT
#pragma once

#include "EditControls.h"

#include <QObject>

#include <array>
#include <functional>

class CListGrid;
class ColorButton;
class IViewBoxes;
class LineEndGuard;
class QComboBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QWidget;

/// The controls of the property editors as widgets, laid over the cells of a list. They tell what happens in them and
/// in the list, and end nothing by themselves. The focus that a menu takes isn't lost.
///
/// The end of a line that is pasted, dropped or composed becomes a blank. The list of choices ignores the wheel.
class PropertyControls : public QObject, public IEditControls
{
public:
    /// Belongs to the list. The boxes must live longer.
    PropertyControls(CListGrid &listGrid, IViewBoxes &viewBoxes);

    /// Told of an event in a control. The focus that goes from one control to another isn't lost.
    std::function<void(EditControl control, EditEvent event)> told;
    /// Told of a key before the control, or the list, has it. True: it is used up.
    std::function<bool(EditControl control, const QKeyEvent &key)> keyPressed;

    /// Names the controls that show after the property, for screen readers.
    void SetName(const QString &property);

    /// Says whether a widget is one of the controls, or part of one; false for null.
    [[nodiscard]] bool Have(const QWidget *widget) const;
    /// Gives a control the focus, with all of its text selected.
    void Focus(EditControl control);
    /// Gives the next control that shows, or the one before for a `step` of -1, the focus. False when there is none.
    bool FocusNext(EditControl from, int step);
    /// Does what the key does in a control.
    void Type(EditControl control, const QKeyEvent &key);

    // IEditControls
    void Show(EditControl control, const QRect &place) override;
    void Hide(EditControl control) override;
    void SetText(EditControl control, const QString &text) override;
    [[nodiscard]] QString Text(EditControl control) const override;
    void SetLimit(EditControl control, int characters) override;
    void SelectAll(EditControl control) override;
    [[nodiscard]] bool HasFocus(EditControl control) const override;
    [[nodiscard]] int WidthOf(const QString &text) const override;
    void SetChoices(const QStringList &choices) override;
    [[nodiscard]] int Choice() const override;
    void Choose(int choice) override;
    void SetSwatch(const EditColor &color) override;
    [[nodiscard]] std::optional<EditColor> AskColor(const EditColor &start) override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Field
    {
        QLabel *label;
        QLineEdit *text;
        LineEndGuard *line;
        int limit = 0; // of typing, in characters
    };

    void MakeFields();
    void MakeChoices();
    void MakeSwatch();
    /// The widget of a control; the list's own for EditControl::Grid.
    [[nodiscard]] QWidget *Widget(EditControl control) const;
    [[nodiscard]] std::optional<EditControl> ControlOf(const QObject *widget) const;
    [[nodiscard]] Field &FieldOf(EditControl text);
    [[nodiscard]] const Field &FieldOf(EditControl text) const;
    void Tell(EditControl control, EditEvent event);
    void FocusWentFrom(EditControl control, Qt::FocusReason reason);

    CListGrid &grid;
    IViewBoxes &boxes;
    QWidget *backdrop;
    std::array<Field, FIELDS> fields{};
    QComboBox *choiceList = nullptr;
    ColorButton *swatch = nullptr;
};
