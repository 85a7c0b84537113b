// SPDX-License-Identifier: MIT
#include "ZoomActions.h"

#include "PreviewZoom.h"

std::optional<ActionState> ZoomActions::StateOf(ActionId id, const PreviewZoom &zoom)
{
    switch (id) {
    case ACTION_ZOOM_IN:
        return ActionState{zoom.CanZoomIn()};
    case ACTION_ZOOM_OUT:
        return ActionState{zoom.CanZoomOut()};
    case ACTION_FIT_VIEW:
        return ActionState{};
    default:
        if (id < ACTION_ZOOM_PRESET || id > ACTION_ZOOM_CUSTOM)
            return std::nullopt;
        return ActionState{true, size_t(id - ACTION_ZOOM_PRESET) == zoom.MarkedEntry()};
    }
}

bool ZoomActions::Run(ActionId id, PreviewZoom &zoom, QSize view)
{
    switch (id) {
    case ACTION_ZOOM_IN:
        return zoom.ZoomIn();
    case ACTION_ZOOM_OUT:
        return zoom.ZoomOut();
    case ACTION_FIT_VIEW:
        return zoom.Fit(view);
    default:
        return id >= ACTION_ZOOM_PRESET && id < ACTION_ZOOM_CUSTOM &&
               zoom.Set(PreviewZoom::PRESETS.at(size_t(id - ACTION_ZOOM_PRESET)));
    }
}
