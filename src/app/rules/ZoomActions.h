#pragma once

#include "ActionTarget.h"

#include <QSize>

class PreviewZoom;

/// The actions of a preview's zoom.
namespace ZoomActions
{

/// As the menu shows it. The action of the zoom that is set has the mark, or else ACTION_ZOOM_CUSTOM. Nothing for an
/// action that isn't about the zoom.
[[nodiscard]] std::optional<ActionState> StateOf(ActionId id, const PreviewZoom &zoom);

/// Carries out an action that needs no question, for a view of that outer size. True when the zoom has changed.
bool Run(ActionId id, PreviewZoom &zoom, QSize view);

} // namespace ZoomActions
