// SPDX-License-Identifier: MIT
#pragma once

#include "EditControls.h"
#include "PropertyRows.h"

#include <memory>

class CLayoutRes;
class CResModel;
class Environment;

/// What became of an edit.
enum class Applied
{
    Refused,     ///< the user has to be told
    Nothing,     ///< nothing has changed
    Changed,     ///< the value of a property
    TreeChanged, ///< the name of a component, or its parent
};

/// Edits the value of one row of the property grid by controls that it lays over the value. There is one at a time.
///
/// It points to the component, so it is closed and destroyed before that goes.
class CPropEditor
{
public:
    virtual ~CPropEditor() = default;
    CPropEditor(const CPropEditor &) = delete;
    CPropEditor &operator=(const CPropEditor &) = delete;

    /// Shows the controls over `rect`. False, and nothing is shown, when there is nothing to choose from.
    virtual bool Open(CLayoutRes &layoutRes, CZulClass &component, const QRect &rect) = 0;
    /// Moves the controls.
    virtual void Reposition(const QRect &rect) = 0;
    /// Writes the value that was typed or chosen.
    virtual Applied Apply() = 0;
    /// Hides the controls.
    virtual void Close() = 0;
    /// Told of an event. True: apply and close the editor now. The base's does so when the editor's one control, or the
    /// grid, has lost the focus to something else.
    virtual bool WantsApply(EditControl control, EditEvent event);
    /// The control that takes what is typed.
    [[nodiscard]] virtual EditControl First() const = 0;

protected:
    CPropEditor(IEditControls &controls, const Environment &environment, CZulType *rowTarget)
        : view(controls), env(environment), target(rowTarget)
    {
    }
    /// Stores a text in the target, which is a scalar. Refuses what its type or the code page doesn't take.
    [[nodiscard]] Applied Store(const QString &text);

    IEditControls &view;
    const Environment &env;
    CZulType *target; // null once it is closed
};

/// The editor for a row; null for one that has none. `controls` and `model` must live longer.
[[nodiscard]] std::unique_ptr<CPropEditor> MakeEditor(const PropertyRow &row, IEditControls &controls,
                                                      CResModel &model);
