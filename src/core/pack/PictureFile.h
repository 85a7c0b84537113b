// SPDX-License-Identifier: MIT
#pragma once

#include "ImageConversion.h"
#include "Phases.h"

#include <deque>

/// A picture that is packed either unchanged or in the device's form.
class PictureFile
{
public:
    /// What a phase says of a picture. `path` is absolute or relative to the current folder.
    struct Request
    {
        QString path;
        bool converts = false; ///< to the device's form
    };

    /// Looks for the picture.
    PictureFile(PackContext &packContext, Request request);

    [[nodiscard]] const QString &Path() const { return path; }
    [[nodiscard]] bool Converts() const { return converts; }
    [[nodiscard]] bool IsThere() const { return converts ? !source.isEmpty() : file.exists; }
    /// Begins the conversion before the picture's turn, if it has one. Returns false if no converter is free.
    [[nodiscard]] bool BeginAhead();
    /// Converts the picture if necessary, then calls `add(file, path)` with the file to pack. Returns the result of
    /// `add`, or PACK_NOT_THERE if the picture couldn't be converted.
    [[nodiscard]] int Add(const std::function<int(const PackFile &, const QString &)> &add);

private:
    [[nodiscard]] int AddMeasured(const std::function<int(const PackFile &, const QString &)> &add) const;

    PackContext &context;
    QString path;
    bool converts;
    PackFile file;     // of a picture that isn't converted
    QByteArray source; // of the conversion
    std::optional<ImageConversion> conversion;
};

/// The pictures of a phase in their order. While one is packed, several converters work on the next ones if the options
/// of the pack say so (PackOptions::jobs).
///
///     for (PictureQueue pictures(context, requests); pictures.Next();)
///         add(pictures.Current());
class PictureQueue
{
public:
    PictureQueue(PackContext &packContext, std::vector<PictureFile::Request> pictureRequests);
    /// Ends the conversions that have been begun.
    ~PictureQueue();
    PictureQueue(const PictureQueue &) = delete;
    PictureQueue &operator=(const PictureQueue &) = delete;

    /// Goes to the next picture, at first to the first one. Returns false if there is none.
    [[nodiscard]] bool Next();
    [[nodiscard]] PictureFile &Current() { return *current; }

private:
    void BeginSome();

    PackContext &context;
    std::vector<PictureFile::Request> requests;
    size_t position = 0; // of the request after the current picture
    std::unique_ptr<PictureFile> current;
    std::deque<std::unique_ptr<PictureFile>> ahead; // of the next requests; null for one that isn't converted
    size_t begun = 0;                               // how many of them
};
