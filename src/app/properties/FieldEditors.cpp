// SPDX-License-Identifier: MIT
#include "FieldEditors.h"

#include "FloatText.h"
#include "ZulValues.h"

#include <algorithm>

namespace
{

constexpr int LONGEST_NUMBER = 20;
constexpr int COLORS = 3;

QString NumberText(qint32 number)
{
    return QString::number(number);
}

QString NumberText(float number)
{
    return QString::fromLatin1(PrintFloat(number));
}

struct NamedNumber
{
    QString label;
    QString number;
};

bool Pick(const std::vector<NamedNumber> &fields, int index, QString &label, QString &text)
{
    if (index >= int(fields.size()))
        return false;
    label = fields[size_t(index)].label;
    text = fields[size_t(index)].number;
    return true;
}

void ShowOrHide(IEditControls &view, EditControl control, const std::optional<QRect> &place)
{
    if (place)
        view.Show(control, *place);
    else
        view.Hide(control);
}

} // namespace

bool CFieldEditor::Open(CLayoutRes &, CZulClass &, const QRect &rect)
{
    QString label;
    QString text;
    for (fieldCount = 0; fieldCount < IEditControls::FIELDS && SetupField(fieldCount, label, text); ++fieldCount) {
        view.SetText(LabelOf(fieldCount), label);
        // A limit below the length would cut the present text.
        view.SetLimit(TextOf(fieldCount), std::max(LONGEST_NUMBER, int(text.size())));
        view.SetText(TextOf(fieldCount), text);
    }
    Reposition(rect);
    return true;
}

std::vector<FieldPlace> CFieldEditor::PlaceFields(const QRect &rect)
{
    std::vector<int> labelWidths;
    for (int field = 0; field < fieldCount; ++field)
        labelWidths.push_back(view.WidthOf(view.Text(LabelOf(field))));
    std::vector<FieldPlace> places = PlacesOfFields(rect, labelWidths, view.WidthOf(QStringLiteral("ABCD")));
    view.Show(EditControl::Backdrop, rect);
    for (int field = 0; field < fieldCount; ++field) {
        ShowOrHide(view, LabelOf(field), places[size_t(field)].label);
        ShowOrHide(view, TextOf(field), places[size_t(field)].text);
    }
    return places;
}

void CFieldEditor::Reposition(const QRect &rect)
{
    PlaceFields(rect);
}

Applied CFieldEditor::Apply()
{
    if (!target || !dirty)
        return Applied::Nothing;
    QStringList texts;
    for (int field = 0; field < fieldCount; ++field)
        texts.append(view.Text(TextOf(field)));
    if (texts.contains(QString()))
        return Applied::Refused;
    return Store(start + texts.join(u',') + u')');
}

void CFieldEditor::Close()
{
    for (int field = 0; field < IEditControls::FIELDS; ++field) {
        view.Hide(LabelOf(field));
        view.Hide(TextOf(field));
    }
    view.Hide(EditControl::Backdrop);
    target = nullptr;
}

bool CFieldEditor::WantsApply(EditControl, EditEvent event)
{
    dirty = dirty || event == EditEvent::TextChanged;
    for (int field = 0; field < fieldCount; ++field) {
        if (view.HasFocus(TextOf(field)))
            return false;
    }
    return true;
}

bool CPointEditor::SetupField(int index, QString &label, QString &text) const
{
    const auto &point = static_cast<const CZulPoint &>(*target);
    return Pick({{QStringLiteral("x:"), NumberText(point.x)}, {QStringLiteral("y:"), NumberText(point.y)}}, index,
                label, text);
}

bool CFPointEditor::SetupField(int index, QString &label, QString &text) const
{
    const auto &point = static_cast<const CZulFPoint &>(*target);
    return Pick({{QStringLiteral("x:"), NumberText(point.x)}, {QStringLiteral("y:"), NumberText(point.y)}}, index,
                label, text);
}

bool CSizeEditor::SetupField(int index, QString &label, QString &text) const
{
    const auto &size = static_cast<const CZulSize &>(*target);
    return Pick(
        {{QStringLiteral("Width:"), NumberText(size.width)}, {QStringLiteral("Height:"), NumberText(size.height)}},
        index, label, text);
}

bool CRectEditor::SetupField(int index, QString &label, QString &text) const
{
    const auto &rect = static_cast<const CZulRect &>(*target);
    return Pick({{QStringLiteral("Left:"), NumberText(rect.left)},
                 {QStringLiteral("Top:"), NumberText(rect.top)},
                 {QStringLiteral("Width:"), NumberText(rect.width)},
                 {QStringLiteral("Height:"), NumberText(rect.height)}},
                index, label, text);
}

EditColor CColorEditor::Stored() const
{
    const auto &color = static_cast<const CZulColor &>(*target);
    return color.attr ? EditColor{color.red, color.green, color.blue} : EditColor{};
}

bool CColorEditor::SetupField(int index, QString &label, QString &text) const
{
    const EditColor color = Stored();
    return Pick({{QStringLiteral("Red:"), NumberText(color.red)},
                 {QStringLiteral("Green:"), NumberText(color.green)},
                 {QStringLiteral("Blue:"), NumberText(color.blue)}},
                index, label, text);
}

bool CColorEditor::Open(CLayoutRes &layoutRes, CZulClass &component, const QRect &rect)
{
    view.SetSwatch(Stored());
    return CFieldEditor::Open(layoutRes, component, rect);
}

void CColorEditor::Reposition(const QRect &rect)
{
    ShowOrHide(view, EditControl::Swatch, PlaceOfSwatch(rect, PlaceFields(rect).back().right));
}

void CColorEditor::Close()
{
    view.Hide(EditControl::Swatch);
    CFieldEditor::Close();
}

bool CColorEditor::WantsApply(EditControl control, EditEvent event)
{
    if (dialogOpen)
        return false; // the dialog has the focus
    if (control == EditControl::Swatch && event == EditEvent::Clicked) {
        AskColor();
        return false;
    }
    return CFieldEditor::WantsApply(control, event);
}

void CColorEditor::AskColor()
{
    const auto typed = [this](int field) { return std::clamp(LeadingNumber(view.Text(TextOf(field))), 0, 255); };
    dialogOpen = true;
    const std::weak_ptr<bool> stillAlive = alive;
    const std::optional<EditColor> color = view.AskColor({typed(0), typed(1), typed(2)});
    if (stillAlive.expired())
        return;
    dialogOpen = false;
    if (!color || !target)
        return;
    const int numbers[COLORS] = {color->red, color->green, color->blue};
    for (int field = 0; field < COLORS; ++field)
        view.SetText(TextOf(field), NumberText(numbers[field]));
    view.SetSwatch(*color);
    dirty = true; // the user has changed the colour, but setting the texts causes no event
}
