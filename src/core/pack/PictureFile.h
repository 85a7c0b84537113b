// SPDX-License-Identifier: MIT
#pragma once

#include "Phases.h"

/// A picture that is packed either unchanged or in the device's form.
class PictureFile
{
public:
    /// Looks for the picture; `path` is absolute or relative to the current folder.
    PictureFile(PackContext &packContext, const QString &picturePath, bool isConverted);

    [[nodiscard]] bool IsThere() const { return converts ? !source.isEmpty() : file.exists; }
    /// Converts the picture if necessary, then calls `add(file, path)` with the file to pack. Returns the result of
    /// `add`, or PACK_NOT_THERE if the picture couldn't be converted.
    [[nodiscard]] int Add(const std::function<int(const PackFile &, const QString &)> &add) const;

private:
    [[nodiscard]] int AddMeasured(const std::function<int(const PackFile &, const QString &)> &add) const;

    PackContext &context;
    QString path;
    bool converts;
    PackFile file;     // of a picture that isn't converted
    QByteArray source; // of the conversion
};
