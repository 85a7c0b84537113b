// SPDX-License-Identifier: MIT
#pragma once

#include "Packer.h"
#include "ScreenSize.h"

#include <optional>

class CResoTable;
class Environment;

/// What the record of PACK says.
struct PackRequest
{
    QString projectPath;
    QString inputFile;
    QString outputFile; ///< empty: the input's name and ".pkd"
    QString resolution;
    QString targetKind;
    int imageConvert = 0;
    int version = 0;
};

// What a record says; nothing if it has too few bytes.
[[nodiscard]] std::optional<QString> ProjectPathOf(QByteArrayView record);
[[nodiscard]] std::optional<PackRequest> PackRequestOf(QByteArrayView record);

/// Parses two numbers like the scan format "%d%*[Xx*]%d": blanks before either number, signs, at least one of X, x and
/// * immediately after the first, any text after the second. A number beyond 32 bits gives the nearest that fits.
[[nodiscard]] std::optional<ScreenSize> ParseResolution(QStringView text);

/// "axf" or "dll", without regard to case.
[[nodiscard]] std::optional<PackMode> PackModeOf(QStringView targetKind);

/// The parameters of the pack that is requested; nothing if the resolution or target kind isn't recognised. A
/// resolution that isn't in the table has the scope -1.
[[nodiscard]] std::optional<packinfo> PackInfoOf(const PackRequest &request, const Environment &env,
                                                 const CResoTable &resolutions);
