#pragma once

#include "CommandRecord.h"
#include "Packer.h"

#include <optional>

class CResoTable;
class Environment;

struct ScreenSize
{
    int width = 0;
    int height = 0;
};

/// Two numbers as the scan format "%d%*[Xx*]%d" takes them: blanks before either number, signs, at least one of X, x
/// and * right behind the first, anything behind the second. A number beyond 32 bits gives the nearest that fits.
[[nodiscard]] std::optional<ScreenSize> ParseResolution(QStringView text);

/// "axf" or "dll", without regard to case.
[[nodiscard]] std::optional<PackMode> PackModeOf(QStringView targetKind);

/// The pack that a record asks for; nothing when its resolution or target kind isn't recognised. A resolution that the
/// table lacks has the scope -1.
[[nodiscard]] std::optional<packinfo> PackInfoOf(const PackCommandRecord &record, const Environment &env,
                                                 const CResoTable &resolutions);
