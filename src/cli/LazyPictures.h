// SPDX-License-Identifier: MIT
#pragma once

#include "PictureAlpha.h"

/// A CountAlpha. Loads libmorvanite-pictures.so, which has the decoders, at the first call: they would cost every other
/// command some milliseconds. Complains if the library is missing. Can be called from several threads.
[[nodiscard]] bool CountAlphaOfPicture(const QByteArray &bytes, PictureAlpha &alpha);
