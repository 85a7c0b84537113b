// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The absolute form of a path that a user typed, in UTF-16 (see CanonicalPath); empty for an empty one. Ends the
/// program with a message if the current folder's name isn't UTF-8.
[[nodiscard]] std::u16string AbsoluteTypedPath(const std::string &typed);
