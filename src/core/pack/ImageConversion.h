// SPDX-License-Identifier: MIT
#pragma once

#include "SignalCleanup.h"
#include "Text.h"

class Environment;
class ScratchFolder;

/// What to do with the files "NAME.ABM" and "NAME.BMPA" that a converter may make beside "NAME.png".
enum class BesideSource
{
    Delete, ///< even if they existed before
    Leave,
};

/// True for the kinds of image that the converter takes: bmp, gif, jpg, png, without regard to case.
[[nodiscard]] bool NeedImageConvert(const QString &path);

/// Runs "qrk_resgenerator.exe" from the program's folder on `source`; it writes the device's form to `target`. Both are
/// absolute host paths. Returns 0, or a PackCode from -1023 to -1026.
///
/// While it runs, the program's folder is the working directory; the old one is always restored. An old target is
/// removed first; if that fails, nothing is converted. A converter that doesn't start, or doesn't end with 0, is
/// explained; only its target decides the result.
[[nodiscard]] int ConvertImage(Environment &env, const QString &source, const QString &target,
                               BesideSource besideSource = BesideSource::Delete);

/// Says why a conversion of a picture would fail, whatever is in its file; empty if nothing is known. `source` is an
/// absolute host path.
[[nodiscard]] QString ObstacleToConversion(const Environment &env, const QByteArray &source,
                                           const ScratchFolder &scratch);

/// A converted image at its temporary path, with the lines that a phase writes about it. The destructor deletes the
/// image; one beside its source is deleted only if the conversion succeeded.
class ConvertedImage
{
public:
    /// `sourceFile` is an absolute host path.
    ConvertedImage(Environment &env, const QByteArray &sourceFile, ScratchFolder &scratch);
    ~ConvertedImage();
    ConvertedImage(const ConvertedImage &) = delete;
    ConvertedImage &operator=(const ConvertedImage &) = delete;

    /// The result of ConvertImage.
    [[nodiscard]] int Code() const { return code; }
    [[nodiscard]] const QByteArray &Target() const { return target; }

private:
    QByteArray target;
    bool isScratch; // in a folder for such files
    SignalCleanup cleanup;
    int code;
};
