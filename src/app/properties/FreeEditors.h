// SPDX-License-Identifier: MIT
#pragma once

#include "PropEditors.h"

/// Edits a value as a text. An unchanged text is not written, because the value may be stored in another spelling, or
/// with more digits than are shown.
class CFreeEditor : public CPropEditor
{
public:
    CFreeEditor(IEditControls &controls, const Environment &environment, CZulType *rowTarget)
        : CPropEditor(controls, environment, rowTarget)
    {
    }

    bool Open(CLayoutRes &layoutRes, CZulClass &component, const QRect &rect) override;
    void Reposition(const QRect &rect) override;
    Applied Apply() override;
    void Close() override;
    [[nodiscard]] EditControl First() const override { return EditControl::Text0; }

protected:
    void Begin(const QString &text, int limit, const QRect &rect);
    /// Writes a text that isn't empty and differs from the text that was shown at first.
    virtual Applied Write(const QString &text) { return Store(text); }

private:
    QString shown; // the text at first
};

/// Edits the name of a component. No other component of the layout can have that name.
class CNameEditor : public CFreeEditor
{
public:
    using CFreeEditor::CFreeEditor;

    bool Open(CLayoutRes &layoutRes, CZulClass &component, const QRect &rect) override;

private:
    Applied Write(const QString &text) override;

    CLayoutRes *layout = nullptr;
};
