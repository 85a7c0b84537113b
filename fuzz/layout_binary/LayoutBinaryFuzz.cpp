// SPDX-License-Identifier: MIT
#include "ReadLayout.h"

// The bytes are an item, whose key is the ID in them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    constexpr std::size_t IdAt = 12;
    std::uint32_t key = 0;
    for (std::size_t i = 0; i < 4 && IdAt + i < size; ++i)
        key |= std::uint32_t{data[IdAt + i]} << (8 * i);
    ReadLayout(std::string(data, data + size), key);
    return 0;
}
