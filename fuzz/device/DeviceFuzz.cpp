// SPDX-License-Identifier: MIT
#include "ReadEverything.h"

#include "morvanite_elf.h"

// The first 4 bytes are the base, the rest a payload. The whole input is also tried as an ELF file and a DLL-side file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto read = [](const std::uint8_t *bytes, std::size_t count, std::uint32_t base) {
        ReadEverything(std::string(bytes, bytes + count), base);
    };
    const ExactBytes whole(std::string(data, data + size));
    if (size >= 4)
        read(data + 4, size - 4,
             data[0] | std::uint32_t{data[1]} << 8 | std::uint32_t{data[2]} << 16 | std::uint32_t{data[3]} << 24);
    const std::uint8_t *payload = nullptr;
    std::uint32_t payloadSize = 0;
    std::uint32_t base = 0;
    if (morvanite_find_appended(whole.Data(), whole.Size(), &payload, &payloadSize, &base) == MORVANITE_OK)
        read(payload, payloadSize, base);
    if (morvanite_find_section(whole.Data(), whole.Size(), &payload, &payloadSize, &base) == MORVANITE_OK) {
        read(payload, payloadSize, 0);
        read(payload, payloadSize, base);
    }
    return 0;
}
