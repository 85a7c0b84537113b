// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

// What Paths.h has for programs with Qt, for those that start without it. The rules of paths are there.

[[nodiscard]] bool IsRelativeUtf16Path(std::u16string_view path);

/// `path` with "." and ".." resolved and "/" as separator. See CanonicalPath.
[[nodiscard]] std::u16string CanonicalUtf16Path(std::u16string_view path);
