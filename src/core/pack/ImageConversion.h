// SPDX-License-Identifier: MIT
#pragma once

#include "PictureConverters.h"

/// True for the kinds of image that the converter takes: bmp, gif, jpg, png, without regard to case.
[[nodiscard]] bool NeedImageConvert(const QString &path);

/// Says why a conversion of a picture would fail, whatever is in its file; empty if nothing is known. `source` is an
/// absolute host path.
[[nodiscard]] QString ObstacleToConversion(const Environment &env, const QByteArray &source,
                                           const ScratchFolder &scratch);

/// The conversion of a picture to a temporary file by the program's converter, or from the cache, with the lines that a
/// phase writes about it. The destructor ends the converter and deletes the file; a file beside its source stays if the
/// conversion was finished and failed.
///
/// The converter's current folder is the program's folder; the folder "Debug" is made there, and the file "temp_image"
/// deleted. The converter may make the files "NAME.ABM" and "NAME.BMPA" beside "NAME.png"; they are deleted, even if
/// they existed before, unless a folder for temporary files is named.
class ImageConversion
{
public:
    /// `sourceFile` is an absolute host path. Begins nothing.
    ImageConversion(Environment &environment, const QByteArray &sourceFile, ScratchFolder &scratch,
                    PictureConverters &pictureConverters);
    ~ImageConversion();
    ImageConversion(const ImageConversion &) = delete;
    ImageConversion &operator=(const ImageConversion &) = delete;

    /// Begins the conversion before its turn. Returns false, and begins nothing, if no converter is free.
    [[nodiscard]] bool BeginAhead();
    /// Finishes it. Returns 0, or a PackCode from -1023 to -1026.
    ///
    /// An old file of the target's name is removed first; if that fails, nothing is converted. A converter that doesn't
    /// start, or doesn't end with 0, is explained; only its target decides the result.
    [[nodiscard]] int Finish();

    /// Where the converter writes.
    [[nodiscard]] const QByteArray &Target() const { return target; }
    /// The file to pack, after Finish.
    [[nodiscard]] PackFile Take();

private:
    [[nodiscard]] bool IsInCache();
    [[nodiscard]] bool IsTargetFree();
    [[nodiscard]] int RemoveOld() const;
    void Start();
    [[nodiscard]] int Convert();
    void RemoveBeside() const;
    [[nodiscard]] int FailWithoutTarget() const;
    [[nodiscard]] int CheckTarget() const;

    Environment &env;
    PictureConverters &converters;
    QByteArray source;
    QByteArray target;
    bool isScratch; // the target is in a folder for such files
    SignalCleanup cleanup;
    QByteArray key;  // in the cache; null before it is sought, empty if there is none
    PackFile cached; // open if the cache has the picture
    std::optional<PictureConverters::FileIdentity> claimed;
    std::unique_ptr<PictureConverters::Run> run;
    std::optional<int> code; // once it is finished
};
