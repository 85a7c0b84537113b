// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"
#include "ListPositions.h"
#include "PictureAlpha.h"
#include "PictureHeader.h"
#include "WaveHeader.h"

#include <atomic>
#include <optional>
#include <vector>

class CResDoc;
class CResFolder;
struct CheckInput;

/// A file that a project's list of resources names, as it is on the disk.
struct SurveyedFile
{
    QString id;
    bool isImage = false;   ///< in a folder of images
    bool isStock = false;   ///< a component's image that belongs to the program
    bool isPush = false;    ///< its ID is of a type Push
    qint32 screen = -1;     ///< the index of the screen whose images it belongs to; -1 for none (ANY_RESOLUTION)
    QString stored;         ///< the path as the list has it
    QString path;           ///< absolute, in the same spelling
    QString found;          ///< absolute, in the spelling of the disk; empty if there is no such file
    int error = 0;          ///< the system's error number if the file can't be opened
    bool isRegular = false; ///< it is open to be read; the fields below are only set then
    qint64 size = 0;        ///< bytes
    size_t startHash = 0;   ///< of the first bytes; files that differ in it have different content
    ContentKind content = ContentKind::Unknown;
    PictureHeader picture; ///< if the content is a picture
    /// Of an image with an alpha channel, for "image-alpha-few", if the first bytes of the file are enough. Without
    /// pixels if it can't be decoded.
    std::optional<PictureAlpha> alpha;
    WaveHeader wave; ///< if the content is a WAV file

    /// True if it is an image of the project whose pixels may be transparent.
    [[nodiscard]] bool MayHaveAlpha() const
    {
        return isImage && !isStock && picture.hasAlpha && picture.fault.isEmpty();
    }
    /// True if the content is a picture whose header was read.
    [[nodiscard]] bool HasPicture() const { return IsConvertible(content) && picture.width > 0; }
};

/// A screen that a check looks at.
struct CheckedScreen
{
    qint32 index; ///< in the table of resolutions; -1 if the table lacks it
    ScreenSize size;
    [[nodiscard]] QString Name() const { return QStringLiteral("%1x%2").arg(size.width).arg(size.height); }
};

/// The files of a project's resources, read once for all rules: the first bytes of each. Reads nothing before the first
/// call that needs it.
///
/// The constructor takes from the document what it needs to know, so that the files can be read in another thread while
/// the document is edited; `ReadPositions` must be called before that. Not for several threads at a time.
class FileSurvey
{
public:
    /// Looks at the images of the screens that are checked, and at all files that belong to no screen.
    explicit FileSurvey(const CheckInput &input);

    /// The project's folder.
    [[nodiscard]] const QString &Folder() const { return folder; }
    /// All files, in the order of the project's tree.
    [[nodiscard]] const std::vector<SurveyedFile> &Files() const;
    [[nodiscard]] const std::vector<CheckedScreen> &Screens() const { return screens; }
    /// The screen of a file, or null.
    [[nodiscard]] const CheckedScreen *ScreenOf(const SurveyedFile &file) const;

    /// Returns a hash of a file's content: equal for equal bytes and different for different ones. Empty if the file
    /// can't be read. Reads the whole file at the first call.
    [[nodiscard]] const QByteArray &DigestOf(const SurveyedFile &file) const;
    /// Returns whether two files have the same bytes. Reads them only if their sizes and their first bytes are equal.
    [[nodiscard]] bool HaveSameBytes(const SurveyedFile &a, const SurveyedFile &b) const;

    /// Returns a finding about a file's line in the resource list.
    [[nodiscard]] Finding About(const SurveyedFile &file, const QString &text) const;
    /// Reads the project's list, for the lines of findings, unless it has been read. Main thread only.
    void ReadPositions() const { positions.Read(); }

    /// Makes the functions that read files end early, with nothing that can be used, once `stopped` is true. It must
    /// outlive this object.
    void StopWhen(const std::atomic<bool> &stopped) { stop = &stopped; }
    [[nodiscard]] bool IsStopped() const { return stop && *stop; }

private:
    void Add(const CResDoc &document, const CResFolder *from, bool isImage, qint32 screen);
    void AddAll(const CResDoc &document);
    void Read() const;
    void ReadFrom(std::atomic<size_t> &next) const;

    QString folder;
    CountAlpha countAlpha; // null if nothing asks for the alpha
    std::vector<CheckedScreen> screens;
    ListPositions positions;
    const std::atomic<bool> *stop = nullptr;
    mutable bool isRead = false;
    mutable std::vector<SurveyedFile> files;
    mutable QHash<const SurveyedFile *, QByteArray> digests;
};
