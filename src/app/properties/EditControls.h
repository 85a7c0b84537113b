// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QStringList>

#include <optional>

/// The source of an editor's event: a control or the grid.
enum class EditControl
{
    Grid,
    Text0, ///< the only text box of an editor with one
    Text1,
    Text2,
    Text3,
    Label0,
    Label1,
    Label2,
    Label3,
    Choices,
    Swatch,
    Backdrop,
};

/// The text box, or the label before it, of a field counted from 0 to 3.
[[nodiscard]] constexpr EditControl TextOf(int field)
{
    return EditControl(int(EditControl::Text0) + field);
}
[[nodiscard]] constexpr EditControl LabelOf(int field)
{
    return EditControl(int(EditControl::Label0) + field);
}

enum class EditEvent
{
    FocusLost,
    TextChanged, ///< by the user; for the list of choices: an entry was chosen, even if it is the same
    Clicked,
};

/// A colour without alpha.
struct EditColor
{
    int red = 0; ///< 0 to 255, like the others
    int green = 0;
    int blue = 0;
    bool operator==(const EditColor &) const = default;
};

/// The controls that a property's editor lays over a value: four text boxes with a label each, a list of choices, a
/// colour swatch and a backdrop. All are hidden at first. One set serves all editors of a view.
class IEditControls
{
public:
    static constexpr int FIELDS = 4;

    /// Shows a control at a place of the grid's viewport.
    virtual void Show(EditControl control, const QRect &place) = 0;
    virtual void Hide(EditControl control) = 0;
    /// Sets the text of a text box or label. This causes no event.
    virtual void SetText(EditControl control, const QString &text) = 0;
    [[nodiscard]] virtual QString Text(EditControl control) const = 0;
    /// Limits the number of characters that the user can type into a text box. The limit never cuts the present text.
    virtual void SetLimit(EditControl control, int characters) = 0;
    virtual void SelectAll(EditControl control) = 0;
    [[nodiscard]] virtual bool HasFocus(EditControl control) const = 0;
    /// The width of a text in pixels, as labels and text boxes show it.
    [[nodiscard]] virtual int WidthOf(const QString &text) const = 0;

    /// The entries of the list of choices; none is chosen.
    virtual void SetChoices(const QStringList &choices) = 0;
    /// The index of the chosen entry, or -1.
    [[nodiscard]] virtual int Choice() const = 0;
    virtual void Choose(int choice) = 0;

    virtual void SetSwatch(const EditColor &color) = 0;
    /// Asks the user for a colour with a dialog, and returns when it is closed. Returns nothing if the dialog is
    /// cancelled.
    [[nodiscard]] virtual std::optional<EditColor> AskColor(const EditColor &start) = 0;

protected:
    ~IEditControls() = default;
};
