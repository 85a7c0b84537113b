// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"
#include "PanGesture.h"
#include "PreviewPainter.h"
#include "PreviewZoom.h"

#include <QAbstractScrollArea>

#include <functional>

class CLayoutRes;
class CResDoc;
class CZulClass;
class IViewHost;

/// The preview of a layout: its screen with the components, at a zoom. A click picks a component.
class CLotScreenView : public QAbstractScrollArea, public IActionTarget
{
public:
    CLotScreenView(CResDoc &projectDocument, IViewHost &viewHost);
    ~CLotScreenView() override;

    /// Shows a layout as it is now; null for none. Keeps the zoom and the selection; the list changes the selection.
    void ShowLayout(const CLayoutRes *layoutRes);
    /// Rebuilds the entries from the tree of components.
    void RebuildEntries();
    /// Reads the values of one component again, or of all components if it is null.
    void RefreshEntries(const CZulClass *changed);
    /// Called before components are destroyed: shows none until a layout is shown again.
    void LetGo();

    /// Marks the selected component; null for none.
    void Select(CZulClass *component);
    [[nodiscard]] CZulClass *Selected() const { return selected; }
    /// Called after a click on a component that isn't the selected one.
    std::function<void(CZulClass &component)> picked;

    [[nodiscard]] const PreviewEntries &Entries() const { return entries; }
    [[nodiscard]] const PreviewZoom &Zoom() const { return zoom; }
    /// The part of the layout that is visible.
    [[nodiscard]] PreviewPlace Place() const;

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

protected:
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    [[nodiscard]] PreviewScene Scene() const;
    void TakeLook();
    /// Drops the labels and pictures of all entries; they are made again when they are painted.
    void ResetLook();
    void Activate(bool isNowActive);
    /// Changes the zoom by calling `change`, which returns whether it has changed it. The point of the layout that is
    /// at `kept` in the view stays there.
    void ChangeZoom(QPoint kept, const std::function<bool(PreviewZoom &)> &change);
    void AskForZoom();
    void SetScrollSizes();
    [[nodiscard]] int TakeWheel(int delta, int least);
    void Pick(QPoint pointer, Qt::KeyboardModifiers keys);
    void ShowStatus(const QString &text);
    void Describe();

    CResDoc &document;
    IViewHost &host;
    const CLayoutRes *layout = nullptr;
    CZulClass *selected = nullptr;
    bool active = false;
    PreviewZoom zoom;
    PreviewEntries entries;
    PreviewPainter painter;
    std::unique_ptr<PreviewArt> art; // null if the settings turn pictures off in the preview
    PanGesture pan{*this};
    int restOfWheel = 0; // the sum of small steps, as a touchpad sends them
};
