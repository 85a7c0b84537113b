// SPDX-License-Identifier: MIT
#pragma once

#include "Document.h"

#include <QWidget>

/// A pane that shows a part of a document's tree. When the document is updated, a visible pane is rebuilt at once, and
/// a hidden one when it is shown next.
class PaneView : public QWidget, public CView
{
public:
    void OnUpdate(CView *sender, long hint, CView *target) override;

protected:
    /// Shows the tree as it is now.
    virtual void Rebuild() = 0;
    void showEvent(QShowEvent *event) override;

    bool isStale = true; ///< the tree may have changed since the last rebuild
};
