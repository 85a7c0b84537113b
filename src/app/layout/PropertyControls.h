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

/// The controls of the property editors as widgets that are laid over the cells of a list. They report the events in
/// themselves and in the list, and never close an editor by themselves. It isn't a loss of focus when a menu takes the
/// focus.
///
/// Line ends in text that is pasted, dropped or composed become blanks. The list of choices ignores the wheel.
class PropertyControls : public QObject, public IEditControls
{
public:
    /// The list owns this object. The boxes must live longer.
    PropertyControls(CListGrid &listGrid, IViewBoxes &viewBoxes);

    /// Called after an event in a control. It isn't a loss of focus when the focus moves from one control to another.
    std::function<void(EditControl control, EditEvent event)> told;
    /// Called for a key before the control, or the list, receives it. Returns true if the key was handled.
    std::function<bool(EditControl control, const QKeyEvent &key)> keyPressed;

    /// Names the visible controls after the property, for screen readers.
    void SetName(const QString &property);

    /// Returns whether a widget is one of the controls, or part of one; false for null.
    [[nodiscard]] bool Have(const QWidget *widget) const;
    /// Gives a control the focus, with all of its text selected.
    void Focus(EditControl control);
    /// Gives the focus to the next visible control, or to the previous one if `step` is -1. Returns false if there is
    /// none.
    bool FocusNext(EditControl from, int step);
    /// Sends a key to a control.
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
        int limit = 0; // of typed text, in characters
    };

    void MakeFields();
    void MakeChoices();
    void MakeSwatch();
    /// The widget of a control; the list for EditControl::Grid.
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
