// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"

#include <QSize>

class PreviewZoom;

/// The actions of a preview's zoom.
namespace ZoomActions
{

/// The state of an action, as the menu shows it. The action of the present zoom is checked, or ACTION_ZOOM_CUSTOM if no
/// action has that zoom. Nothing for an action that isn't about the zoom.
[[nodiscard]] std::optional<ActionState> StateOf(ActionId id, const PreviewZoom &zoom);

/// Runs an action that needs no question, for a view of that outer size. Returns whether the zoom has changed.
bool Run(ActionId id, PreviewZoom &zoom, QSize view);

} // namespace ZoomActions
