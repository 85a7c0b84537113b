#pragma once

#include "Phases.h"

/// A picture that goes into the payload as it is, or in the device's form.
class PictureFile
{
public:
    /// Looks for the picture; `path` is absolute, or counts from the current folder.
    PictureFile(PackContext &packContext, const QString &picturePath, bool isConverted);

    [[nodiscard]] bool IsThere() const { return converts ? !source.isEmpty() : file.exists; }
    /// Calls `add(file, path)` with the file that is to be packed, which a conversion makes first. Its result, or
    /// PACK_NOT_THERE when the picture couldn't be converted.
    [[nodiscard]] int Add(const std::function<int(const PackFile &, const QString &)> &add) const;

private:
    PackContext &context;
    QString path;
    bool converts;
    PackFile file;     // of one that isn't converted
    QByteArray source; // of the conversion
};
