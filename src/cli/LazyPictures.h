// SPDX-License-Identifier: MIT
#pragma once

#include "DeviceSizes.h"
#include "PictureAlpha.h"

/// A CountAlpha. Loads libmorvanite-pictures.so, which has the decoders, at the first call: they would cost every other
/// command some milliseconds. Complains if the library is missing. Can be called from several threads.
[[nodiscard]] bool CountAlphaOfPicture(const QByteArray &bytes, PictureAlpha &alpha);

/// A MeasurePicture, which loads the same library.
[[nodiscard]] std::optional<quint64> SizeOfConvertedPicture(const QByteArray &bytes, QString &fault);
