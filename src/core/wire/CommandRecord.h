// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The commands of an IDE, with their numbers in the message.
enum IdeCommand : uint32_t
{
    IDE_COMMAND_LOAD = 0xAFBDDBFB,
    IDE_COMMAND_SAVE = 0xAFBDDBFC,
    IDE_COMMAND_PACK = 0xAFBDDBFD,
};

/// The record of LOAD and SAVE.
///
///     offset  size  field
///          0   520  project path, 260 characters of UTF-16LE
///
/// A text ends at its first null character, or at the end of its field. Bytes after the last field are ignored.
struct CommandRecord
{
    std::u16string projectPath; ///< full path of the ".vcproj" file
};

/// The record of PACK.
///
///     offset  size  field
///          0   520  project path, 260 characters
///        520   520  input file, 260 characters
///       1040   520  output file, 260 characters; empty: the input's name and ".pkd"
///       1560    64  resolution, 32 characters, such as 240x320
///       1624    64  target kind, 32 characters, "dll" or "axf"
///       1688     4  image conversion, signed
///       1692     4  version, signed
struct PackCommandRecord
{
    std::u16string projectPath;
    std::u16string inputFile;
    std::u16string outputFile;
    std::u16string resolution;
    std::u16string targetKind;
    int32_t imageConvert = 0;
    int32_t version = 0;
};

constexpr size_t COMMAND_RECORD_SIZE = 520;
constexpr size_t PACK_COMMAND_RECORD_SIZE = 1696;

/// Returns nothing if there are fewer bytes than the record has.
[[nodiscard]] std::optional<CommandRecord> ParseCommandRecord(std::string_view bytes);
[[nodiscard]] std::optional<PackCommandRecord> ParsePackCommandRecord(std::string_view bytes);

/// Returns the bytes to send. Returns nothing, and `error` says why, if a text doesn't fit into its field with a
/// terminator (259 or 31 characters) or contains a null character.
[[nodiscard]] std::optional<std::string> BuildRecord(const CommandRecord &record, std::string &error);
[[nodiscard]] std::optional<std::string> BuildRecord(const PackCommandRecord &record, std::string &error);
