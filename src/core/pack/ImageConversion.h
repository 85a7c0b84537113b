#pragma once

#include "SignalCleanup.h"
#include "Text.h"

class Environment;
class ScratchFolder;

/// What becomes of the files "NAME.ABM" and "NAME.BMPA" that a converter may make beside "NAME.png".
enum class BesideSource
{
    Delete, ///< also when they were there before
    Leave,
};

/// True for the kinds of image that the converter takes: bmp, gif, jpg, png, without regard to case.
[[nodiscard]] bool NeedImageConvert(const QString &path);

/// Runs "qrk_resgenerator.exe" of the program's folder on `source`, which writes the device's form to `target`; both
/// are absolute host paths. 0, or a PackCode from -1023 to -1026.
///
/// The program's folder is the working directory meanwhile; on every way out the old one is back. An old target is
/// removed first; where that can't be done nothing is converted. A converter that doesn't start, or doesn't end with 0,
/// is explained; only its target counts.
[[nodiscard]] int ConvertImage(Environment &env, const QString &source, const QString &target,
                               BesideSource besideSource = BesideSource::Delete);

/// A converted image in the place for it, with the lines that a phase writes about it. Deleted at the end of this
/// object; beside its source only if the conversion succeeded.
class ConvertedImage
{
public:
    /// `sourceFile` is an absolute host path.
    ConvertedImage(Environment &env, const QByteArray &sourceFile, ScratchFolder &scratch);
    ~ConvertedImage();
    ConvertedImage(const ConvertedImage &) = delete;
    ConvertedImage &operator=(const ConvertedImage &) = delete;

    /// Of ConvertImage.
    [[nodiscard]] int Code() const { return code; }
    [[nodiscard]] const QByteArray &Target() const { return target; }

private:
    QByteArray target;
    bool isScratch; // in a folder for such files
    SignalCleanup cleanup;
    int code;
};
