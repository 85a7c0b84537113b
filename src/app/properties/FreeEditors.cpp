// SPDX-License-Identifier: MIT
#include "FreeEditors.h"

#include "CLayoutRes.h"
#include "Environment.h"
#include "IdNames.h"

#include <algorithm>

namespace
{

constexpr int LONGEST_VALUE = 512;

} // namespace

bool CFreeEditor::Open(CLayoutRes &, CZulClass &, const QRect &rect)
{
    Begin(env.NarrowToWide(target->GetText()), LONGEST_VALUE, rect);
    return true;
}

void CFreeEditor::Begin(const QString &text, int limit, const QRect &rect)
{
    shown = text;
    // A limit below the length would cut the present text.
    view.SetLimit(EditControl::Text0, std::max(limit, int(text.size())));
    view.SetText(EditControl::Text0, text);
    view.SelectAll(EditControl::Text0);
    Reposition(rect);
}

void CFreeEditor::Reposition(const QRect &rect)
{
    view.Show(EditControl::Text0, rect);
}

Applied CFreeEditor::Apply()
{
    const QString text = view.Text(EditControl::Text0);
    return !target || text.isEmpty() || text == shown ? Applied::Nothing : Write(text);
}

void CFreeEditor::Close()
{
    view.Hide(EditControl::Text0);
    target = nullptr;
}

bool CNameEditor::Open(CLayoutRes &layoutRes, CZulClass &, const QRect &rect)
{
    layout = &layoutRes;
    Begin(env.NarrowToWide(target->propName), MAX_ID_NAME, rect);
    return true;
}

Applied CNameEditor::Write(const QString &text)
{
    if (!IsValidIdName(text))
        return Applied::Refused;
    const NarrowText name = env.WideToNarrow(text);
    if (layout->FindComponent(name))
        return Applied::Refused;
    static_cast<CZulClass &>(*target).SetName(name);
    return Applied::TreeChanged;
}
