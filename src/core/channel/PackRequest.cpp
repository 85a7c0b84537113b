// SPDX-License-Identifier: MIT
#include "PackRequest.h"

#include "CResoTable.h"
#include "CommandRecord.h"
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

std::string_view BytesOf(QByteArrayView record)
{
    return {record.data(), size_t(record.size())};
}

} // namespace

std::optional<QString> ProjectPathOf(QByteArrayView record)
{
    const auto parsed = ParseCommandRecord(BytesOf(record));
    return parsed ? std::optional(QString::fromStdU16String(parsed->projectPath)) : std::nullopt;
}

std::optional<PackRequest> PackRequestOf(QByteArrayView record)
{
    const auto parsed = ParsePackCommandRecord(BytesOf(record));
    if (!parsed)
        return std::nullopt;
    return PackRequest{QString::fromStdU16String(parsed->projectPath),
                       QString::fromStdU16String(parsed->inputFile),
                       QString::fromStdU16String(parsed->outputFile),
                       QString::fromStdU16String(parsed->resolution),
                       QString::fromStdU16String(parsed->targetKind),
                       parsed->imageConvert,
                       parsed->version};
}

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

std::optional<packinfo> PackInfoOf(const PackRequest &request, const Environment &env, const CResoTable &resolutions)
{
    const auto size = ParseResolution(request.resolution);
    const auto mode = PackModeOf(request.targetKind);
    if (!size || !mode)
        return std::nullopt;
    packinfo parameters;
    parameters.inputfilename = env.WideToNarrow(request.inputFile);
    parameters.outputfilename = env.WideToNarrow(request.outputFile);
    parameters.packmode = *mode;
    parameters.scope = resolutions.IndexOf(size->width, size->height);
    parameters.imageconvert = request.imageConvert;
    parameters.ver = request.version;
    return parameters;
}
