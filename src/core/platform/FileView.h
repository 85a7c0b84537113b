// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <memory>

/// The bytes of a file, for code that reads only parts of them. The file is mapped into memory, so only the parts that
/// are used are read from the disk.
///
/// If another program cuts the file short, or the disk fails, the parts that can't be read any more are zeros, and
/// `IsCutShort` returns true from then on. The process has a handler of SIGBUS for that. Make and destroy these objects
/// in the main thread only.
class FileView
{
public:
    FileView();
    explicit FileView(QByteArray bytes); ///< bytes in memory instead of a file
    ~FileView();
    FileView(FileView &&other) noexcept;
    FileView &operator=(FileView &&other) noexcept;

    /// Maps a file. Returns 0, or the system's error number (EFBIG for a file above `limit` bytes).
    [[nodiscard]] int Open(QStringView path, qint64 limit);
    /// The bytes, which are valid as long as this object.
    [[nodiscard]] QByteArrayView Bytes() const;
    /// Whether some of the bytes may be zeros that aren't in the file.
    [[nodiscard]] bool IsCutShort() const;

    struct Mapping;

private:
    std::unique_ptr<Mapping> mapping; // null for bytes in memory
    QByteArray inMemory;
};
