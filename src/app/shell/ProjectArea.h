// SPDX-License-Identifier: MIT
#pragma once

#include "CChildFrame.h"

#include <QMdiArea>

/// The area of the windows of projects. While there is none, it says how to open a project.
class ProjectArea : public QMdiArea
{
public:
    explicit ProjectArea(QWidget *parent);

    /// The windows that still have their document.
    [[nodiscard]] QList<CChildFrame *> Children() const;
    /// The active project's window, or null.
    [[nodiscard]] CChildFrame *ActiveChild() const;
    /// A document's window, or null.
    [[nodiscard]] CChildFrame *ChildOf(const CDocument &document) const;
    /// Brings a document's window to the front.
    void Activate(const CDocument &document);

    void Cascade();
    /// Arranges the minimised windows along the bottom.
    void ArrangeIcons();

protected:
    void paintEvent(QPaintEvent *event) override;
    bool viewportEvent(QEvent *event) override;
};
