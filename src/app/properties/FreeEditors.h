// SPDX-License-Identifier: MIT
#pragma once

#include "PropEditors.h"

/// Edits a value as a text. A text that is left as it was shown is not written: the value may be stored in another
/// spelling, or with more digits than are shown.
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
    /// Writes a text that isn't empty and not the one that was shown.
    virtual Applied Write(const QString &text) { return Store(text); }

private:
    QString shown; // at first
};

/// Edits the name of a component, which no other of the layout has.
class CNameEditor : public CFreeEditor
{
public:
    using CFreeEditor::CFreeEditor;

    bool Open(CLayoutRes &layoutRes, CZulClass &component, const QRect &rect) override;

private:
    Applied Write(const QString &text) override;

    CLayoutRes *layout = nullptr;
};
