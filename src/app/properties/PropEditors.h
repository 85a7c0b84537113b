// SPDX-License-Identifier: MIT
#pragma once

#include "EditControls.h"
#include "PropertyRows.h"

#include <memory>

class CLayoutRes;
class CResModel;
class Environment;

/// The result of an edit.
enum class Applied
{
    Refused,     ///< the caller must tell the user
    Nothing,     ///< nothing has changed
    Changed,     ///< the value of a property
    TreeChanged, ///< the name of a component, or its parent
};

/// Edits the value of one row of the property grid with controls that are laid over the value. Only one editor is open
/// at a time.
///
/// An editor has a pointer to the component, so it must be closed and destroyed before the component is.
class CPropEditor
{
public:
    virtual ~CPropEditor() = default;
    CPropEditor(const CPropEditor &) = delete;
    CPropEditor &operator=(const CPropEditor &) = delete;

    /// Shows the controls over `rect`. If there is nothing to choose from, shows nothing and returns false.
    virtual bool Open(CLayoutRes &layoutRes, CZulClass &component, const QRect &rect) = 0;
    /// Moves the controls.
    virtual void Reposition(const QRect &rect) = 0;
    /// Writes the value that was typed or chosen.
    virtual Applied Apply() = 0;
    /// Hides the controls.
    virtual void Close() = 0;
    /// Called after an event. Returns true if the caller must apply the edit and close the editor now. The base class
    /// returns true when the editor's one control, or the grid, has lost the focus to something else.
    virtual bool WantsApply(EditControl control, EditEvent event);
    /// The control that receives typed text.
    [[nodiscard]] virtual EditControl First() const = 0;

protected:
    CPropEditor(IEditControls &controls, const Environment &environment, CZulType *rowTarget)
        : view(controls), env(environment), target(rowTarget)
    {
    }
    /// Stores a text in the target, which must be a scalar. Refuses a text that is invalid for the type of the target,
    /// or that the code page can't represent.
    [[nodiscard]] Applied Store(const QString &text);

    IEditControls &view;
    const Environment &env;
    CZulType *target; // null once the editor is closed
};

/// Makes the editor for a row. Null if the row has no editor. `controls` and `model` must live longer.
[[nodiscard]] std::unique_ptr<CPropEditor> MakeEditor(const PropertyRow &row, IEditControls &controls,
                                                      CResModel &model);
