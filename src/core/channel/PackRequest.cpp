// SPDX-License-Identifier: MIT
#include "PackRequest.h"

#include "CResoTable.h"
#include "Environment.h"
#include "TargetKind.h"

#include <algorithm>
#include <limits>

namespace
{

bool IsBlank(QChar c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// Removes from the front of `text` what "%d" would read. Returns false if that isn't a number.
bool TakeNumber(QStringView &text, int &number)
{
    qsizetype at = 0;
    while (at < text.size() && IsBlank(text[at]))
        ++at;
    const bool negative = at < text.size() && text[at] == u'-';
    if (negative || (at < text.size() && text[at] == u'+'))
        ++at;
    if (at >= text.size() || !IsDigit(text[at]))
        return false;
    constexpr qint64 bound = qint64(std::numeric_limits<int>::max()) + 1; // the absolute value of the smallest number
    qint64 size = 0;
    for (; at < text.size() && IsDigit(text[at]); ++at)
        size = std::min(size * 10 + (text[at].unicode() - u'0'), bound);
    number = int(negative ? -size : std::min(size, bound - 1));
    text = text.sliced(at);
    return true;
}

} // namespace

std::optional<ScreenSize> ParseResolution(QStringView text)
{
    ScreenSize size;
    if (!TakeNumber(text, size.width))
        return std::nullopt;
    qsizetype marks = 0;
    while (marks < text.size() && (text[marks] == u'X' || text[marks] == u'x' || text[marks] == u'*'))
        ++marks;
    text = text.sliced(marks);
    if (marks == 0 || !TakeNumber(text, size.height))
        return std::nullopt;
    return size;
}

std::optional<PackMode> PackModeOf(QStringView targetKind)
{
    const auto kind = ParseTargetKind(targetKind.toUtf8().toStdString());
    if (!kind)
        return std::nullopt;
    return *kind == TargetKind::Dll ? PACK_TO_DLL : PACK_TO_TARGET;
}

std::optional<packinfo> PackInfoOf(const PackCommandRecord &record, const Environment &env,
                                   const CResoTable &resolutions)
{
    const auto size = ParseResolution(record.resolution);
    const auto mode = PackModeOf(record.targetKind);
    if (!size || !mode)
        return std::nullopt;
    packinfo parameters;
    parameters.inputfilename = env.WideToNarrow(record.inputFile);
    parameters.outputfilename = env.WideToNarrow(record.outputFile);
    parameters.packmode = *mode;
    parameters.scope = resolutions.IndexOf(size->width, size->height);
    parameters.imageconvert = record.imageConvert;
    parameters.ver = record.version;
    return parameters;
}
