// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// Sends one command to the running window and collects its report, as an IDE does.
///
/// Serves the report pipe while the command runs. Clients take turns by means of the pipe's lock file, so a second one
/// waits for the first.
class IdeCommandClient
{
public:
    /// Gets the report piece by piece as it arrives; a piece never ends within a character.
    using Sink = std::function<void(std::u16string_view)>;

    /// Returns the window's answer once the report is complete. Returns nothing, and `error` says why, if no window is
    /// running, an IDE already serves the pipe, or the window ends before it answers; the sink then has the part of the
    /// report that arrived.
    [[nodiscard]] static std::optional<uint32_t> Run(uint32_t dwData, std::string_view record, const Sink &report,
                                                     std::string &error);
};
