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

    /// Shows a layout as it is now; null for none. The zoom stays. What is selected stays: the list selects.
    void ShowLayout(const CLayoutRes *layoutRes);
    /// Takes the tree of components anew.
    void RebuildEntries();
    /// Takes the values of one component anew, or of all when it is null.
    void RefreshEntries(const CZulClass *changed);
    /// Components are about to be destroyed: shows none until the entries are built again.
    void LetGo();

    /// Shows which component is selected; null for none.
    void Select(CZulClass *component);
    [[nodiscard]] CZulClass *Selected() const { return selected; }
    /// Told of a click on a component that isn't the selected one.
    std::function<void(CZulClass &component)> picked;

    [[nodiscard]] const PreviewEntries &Entries() const { return entries; }
    [[nodiscard]] const PreviewZoom &Zoom() const { return zoom; }
    /// What of the layout is in sight.
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
    /// Labels and pictures of all entries are made anew.
    void ResetLook();
    void Activate(bool isNowActive);
    /// Changes the zoom by `change`, which says whether it has; what is at the point `kept` of the view stays there.
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
    std::unique_ptr<PreviewArt> art; // null where the settings have the preview draw no pictures
    PanGesture pan{*this};
    int restOfWheel = 0; // of small steps, as a touchpad sends them
};
