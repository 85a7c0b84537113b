// SPDX-License-Identifier: MIT
#include "CommandRecord.h"

#include "LittleEndian.h"
#include "Utf16.h"

namespace
{

/// A text field: its offset and its number of characters.
struct Field
{
    size_t offset;
    size_t characters;
    const char *name;
};

constexpr Field PROJECT{0, 260, "project path"};
constexpr Field INPUT{520, 260, "input file"};
constexpr Field OUTPUT{1040, 260, "output file"};
constexpr Field RESOLUTION{1560, 32, "resolution"};
constexpr Field TARGET_KIND{1624, 32, "target kind"};
constexpr size_t IMAGE_CONVERT_AT = 1688;
constexpr size_t VERSION_AT = 1692;

/// `bytes` must extend to the end of the field.
std::u16string TextOf(std::string_view bytes, const Field &field)
{
    std::u16string text = Utf16OfBytes(bytes.substr(field.offset, 2 * field.characters));
    text.resize(std::min(text.find(u'\0'), text.size()));
    return text;
}

bool PutText(std::string &bytes, const Field &field, std::u16string_view text, std::string &error)
{
    if (text.size() >= field.characters) {
        error = std::string("the ") + field.name + " has " + std::to_string(text.size()) +
                " characters, but a command has room for " + std::to_string(field.characters - 1) +
                " only: " + Utf8Of(text);
        return false;
    }
    if (text.find(u'\0') != text.npos) {
        error = std::string("the ") + field.name + " contains a null character";
        return false;
    }
    for (size_t i = 0; i < text.size(); ++i)
        PutLittleEndian<uint16_t>(text[i], bytes.data() + field.offset + 2 * i);
    return true;
}

} // namespace

std::optional<CommandRecord> ParseCommandRecord(std::string_view bytes)
{
    if (bytes.size() < COMMAND_RECORD_SIZE)
        return std::nullopt;
    return CommandRecord{TextOf(bytes, PROJECT)};
}

std::optional<PackCommandRecord> ParsePackCommandRecord(std::string_view bytes)
{
    if (bytes.size() < PACK_COMMAND_RECORD_SIZE)
        return std::nullopt;
    PackCommandRecord record;
    record.projectPath = TextOf(bytes, PROJECT);
    record.inputFile = TextOf(bytes, INPUT);
    record.outputFile = TextOf(bytes, OUTPUT);
    record.resolution = TextOf(bytes, RESOLUTION);
    record.targetKind = TextOf(bytes, TARGET_KIND);
    record.imageConvert = GetLittleEndian<int32_t>(bytes.data() + IMAGE_CONVERT_AT);
    record.version = GetLittleEndian<int32_t>(bytes.data() + VERSION_AT);
    return record;
}

std::optional<std::string> BuildRecord(const CommandRecord &record, std::string &error)
{
    std::string bytes(COMMAND_RECORD_SIZE, '\0');
    if (!PutText(bytes, PROJECT, record.projectPath, error))
        return std::nullopt;
    return bytes;
}

std::optional<std::string> BuildRecord(const PackCommandRecord &record, std::string &error)
{
    std::string bytes(PACK_COMMAND_RECORD_SIZE, '\0');
    if (!PutText(bytes, PROJECT, record.projectPath, error) || !PutText(bytes, INPUT, record.inputFile, error) ||
        !PutText(bytes, OUTPUT, record.outputFile, error) || !PutText(bytes, RESOLUTION, record.resolution, error) ||
        !PutText(bytes, TARGET_KIND, record.targetKind, error))
        return std::nullopt;
    PutLittleEndian(record.imageConvert, bytes.data() + IMAGE_CONVERT_AT);
    PutLittleEndian(record.version, bytes.data() + VERSION_AT);
    return bytes;
}
