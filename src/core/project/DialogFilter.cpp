// SPDX-License-Identifier: MIT
#include "DialogFilter.h"

#include "ResModel.h"

DialogFilter DialogFilterOf(const CResModel &model, quint32 mask)
{
    struct Entry
    {
        quint32 bit;
        const char *name;
        const char *key;
    };
    static constexpr Entry ENTRIES[] = {
        {KIND_IMAGES, "Image Files", "image"},
        {KIND_AUDIO, "Audio Files", "audio"},
        {KIND_VIDEO, "Video Files", "video"},
    };
    DialogFilter filter;
    const auto separator = [&filter] { return QLatin1String(filter.count++ ? "|" : ""); };
    for (const Entry &entry : ENTRIES) {
        if (mask & entry.bit)
            filter.text += QStringLiteral("%1%2 (%3)|%3")
                               .arg(separator(), QLatin1String(entry.name), model.FilePatterns(entry.key));
    }
    if (mask & KIND_BINARY)
        filter.text += QStringLiteral("%1All Files (*.*)|*.*").arg(separator());
    return filter;
}
