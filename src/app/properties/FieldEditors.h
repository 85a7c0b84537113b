// SPDX-License-Identifier: MIT
#pragma once

#include "FieldPlaces.h"
#include "PropEditors.h"

/// Edits a value of several numbers, each in a text box with a label.
class CFieldEditor : public CPropEditor
{
public:
    /// `valueStart` is what the text of a value begins with.
    CFieldEditor(IEditControls &controls, const Environment &environment, CZulType *rowTarget,
                 const QString &valueStart = QStringLiteral("("))
        : CPropEditor(controls, environment, rowTarget), start(valueStart)
    {
    }

    bool Open(CLayoutRes &layoutRes, CZulClass &component, const QRect &rect) override;
    void Reposition(const QRect &rect) override;
    Applied Apply() override;
    void Close() override;
    bool WantsApply(EditControl control, EditEvent event) override;
    [[nodiscard]] EditControl First() const override { return EditControl::Text0; }

protected:
    /// Writes the label and the text of a field; `index` counts from 0. Returns false if there is no such field.
    virtual bool SetupField(int index, QString &label, QString &text) const = 0;
    /// Shows the fields and returns their places.
    std::vector<FieldPlace> PlaceFields(const QRect &rect);

    bool dirty = false; ///< the user has changed something

private:
    QString start;
    int fieldCount = 0;
};

class CPointEditor : public CFieldEditor
{
public:
    using CFieldEditor::CFieldEditor;

private:
    bool SetupField(int index, QString &label, QString &text) const override;
};

class CFPointEditor : public CFieldEditor
{
public:
    using CFieldEditor::CFieldEditor;

private:
    bool SetupField(int index, QString &label, QString &text) const override;
};

class CSizeEditor : public CFieldEditor
{
public:
    using CFieldEditor::CFieldEditor;

private:
    bool SetupField(int index, QString &label, QString &text) const override;
};

class CRectEditor : public CFieldEditor
{
public:
    using CFieldEditor::CFieldEditor;

private:
    bool SetupField(int index, QString &label, QString &text) const override;
};

/// Edits a colour by numbers or by a dialog, which a click on the swatch opens. A colour that is written has no alpha.
class CColorEditor : public CFieldEditor
{
public:
    CColorEditor(IEditControls &controls, const Environment &environment, CZulType *rowTarget)
        : CFieldEditor(controls, environment, rowTarget, QStringLiteral("RGB("))
    {
    }

    bool Open(CLayoutRes &layoutRes, CZulClass &component, const QRect &rect) override;
    void Reposition(const QRect &rect) override;
    void Close() override;
    bool WantsApply(EditControl control, EditEvent event) override;

private:
    bool SetupField(int index, QString &label, QString &text) const override;
    [[nodiscard]] EditColor Stored() const;
    void AskColor();

    bool dialogOpen = false;
    std::shared_ptr<bool> alive = std::make_shared<bool>(); // the dialog's loop may destroy the editor
};
