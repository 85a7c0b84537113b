// SPDX-License-Identifier: MIT
#pragma once

#include "DeviceSizes.h"
#include "PictureAlpha.h"

/// A CountAlpha, which the programs define (src/cli/LazyPictures.cpp). Loads libmorvanite-pictures.so, which has the
/// decoders, at the first call: they would cost every other command, and the start of the window, some milliseconds.
/// Returns false if the library is missing. Can be called from several threads.
[[nodiscard]] bool CountAlphaOfPicture(const QByteArray &bytes, PictureBytes part, PictureAlpha &alpha);

/// A MeasurePicture, which loads the same library.
[[nodiscard]] std::optional<quint64> SizeOfConvertedPicture(const QByteArray &bytes, QString &fault);

/// Returns whether a call of CountAlphaOfPicture has found that the library is missing.
[[nodiscard]] bool IsPictureModuleMissing();
