#include "ReadEverything.h"

#include "morvanite_elf.h"

#include <cstdlib>

// The first 4 bytes are the base, the rest a payload; and the whole is tried as an ELF file and as a DLL-side file too.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto read = [](const std::uint8_t *bytes, std::uint32_t count, std::uint32_t base) {
        Reading reading;
        ReadEverything(ExactBytes(std::vector<std::uint8_t>(bytes, bytes + count)), base, reading);
        if (!reading.indexAgrees)
            std::abort();
    };
    const ExactBytes whole(std::vector<std::uint8_t>(data, data + size));
    if (size >= 4) {
        std::uint32_t base = 0;
        for (unsigned i = 0; i < 4; ++i)
            base |= std::uint32_t{data[i]} << (8 * i);
        read(data + 4, whole.Size() - 4, base);
    }
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
