#pragma once

#include "Text.h"

class Environment;

/// True for the kinds of image that the converter takes: bmp, gif, jpg, png, without regard to case.
[[nodiscard]] bool NeedImageConvert(const QString &path);

/// Runs "qrk_resgenerator.exe" of the program's folder on `source`, which writes the device's form to `target`; both
/// are absolute host paths. 0, or a PackCode from -1023 to -1026.
///
/// The program's folder is the working directory meanwhile; on every way out the old one is back. An old target passes
/// for a new one when the converter doesn't run.
[[nodiscard]] int ConvertImage(Environment &env, const QString &source, const QString &target);

/// A converted image beside its source, named after it with ".tmp", with the lines that a phase writes about it.
/// Deleted at the end of this object, if the conversion succeeded.
class ConvertedImage
{
public:
    /// `sourceFile` is an absolute host path.
    ConvertedImage(Environment &env, const QByteArray &sourceFile);
    ~ConvertedImage();
    ConvertedImage(const ConvertedImage &) = delete;
    ConvertedImage &operator=(const ConvertedImage &) = delete;

    /// Of ConvertImage.
    [[nodiscard]] int Code() const { return code; }
    [[nodiscard]] const QByteArray &Target() const { return target; }

private:
    QByteArray target;
    int code;
};
