// SPDX-License-Identifier: MIT
// A font file of any bytes: opening it fails with a reason or gives a font whose characters and widths can be asked
// for.

#include "DeviceFont.h"
#include "FuzzFolder.h"

namespace
{

/// The libraries for fonts aren't compiled with the fuzzer's counters, so each result counts as code that was reached:
/// inputs with other results are kept.
__attribute__((section("__libfuzzer_extra_counters"), used)) quint8 reached[4096];

void Reach(size_t result)
{
    reached[(result * 0x9E3779B97F4A7C15) >> 52] = 1;
}

void Require(bool isTrue)
{
    if (!isTrue)
        std::abort();
}

void Use(IDeviceFont &font)
{
    // Latin, a mark, Arabic that is joined, Devanagari that is reordered, a pair and a half of a pair.
    constexpr QStringView TEXT = u"AVfi\u0301 \u0645\u0631\u062D\u0628\u0627 \u0915\u093F\u0902 \U0001F514\xD83D\uFFFF";
    size_t had = 0;
    for (const char32_t character : {U'A', U'\0', U'\u4E2D', U'\U0001F514', U'\U0010FFFF', char32_t(0xFFFFFFFF)})
        had = had * 2 + size_t(font.Has(character));
    Reach(had);
    const int width = font.WidthOf(TEXT);
    Require(width == font.WidthOf(TEXT));
    Reach(size_t(width) << 8);
    for (qsizetype i = 0; i < TEXT.size(); ++i)
        Reach(size_t(font.WidthOf(TEXT.sliced(i, 1))) << 8 | size_t(i));
    (void)font.WidthOf({});
    (void)font.WidthOf(QString(1000, u'A'));
}

} // namespace

/// The first two bytes choose the size and the shaping; the others are the file.
extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    static const FuzzFolder folder;
    if (size < 2)
        return 0;
    folder.Put("font", QByteArray(reinterpret_cast<const char *>(data) + 2, qsizetype(size) - 2));
    QString why;
    const auto font = OpenDeviceFont(folder.Path("font"), 1 + data[0] * 4 % 1000, data[1] & 1, why);
    Require(bool(font) == why.isEmpty());
    Reach(size_t(why.size()) << 32);
    if (font)
        Use(*font);
    return 0;
}
