// SPDX-License-Identifier: MIT
#include "Readers.h"

#include <cstring>
#include <string_view>

namespace
{

struct PictureFormat
{
    std::string_view firstBytes;
    Outcome (*read)(Bytes file, Picture &picture);
};

/// A new format is a line here and a reader in a file of its own.
constexpr PictureFormat formats[] = {
    {"BM", ReadBmp},
    {"GIF87a", ReadGif},
    {"GIF89a", ReadGif},
    {"\xFF\xD8\xFF", ReadJpeg},
    {"\x89PNG\r\n\x1A\n", ReadPng},
};

} // namespace

Outcome ReadPicture(Bytes file, Picture &picture)
{
    for (const PictureFormat &format : formats) {
        const std::string_view wanted = format.firstBytes;
        if (file.size() >= wanted.size() && std::memcmp(file.data(), wanted.data(), wanted.size()) == 0)
            return format.read(file, picture);
    }
    if (file.empty())
        return Outcome::Failed("empty file, expected a bmp, gif, jpg or png picture");
    char found[3 * 8 + 1] = {};
    for (std::size_t at = 0; at < file.size() && at < 8; ++at)
        std::snprintf(found + 3 * at, 4, " %02x", file[at]);
    return Outcome::Failed("file of %zu bytes that begins with%s, expected a bmp, gif, jpg or png picture", file.size(),
                           found);
}
