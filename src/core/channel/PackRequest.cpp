// SPDX-License-Identifier: MIT
#include "PackRequest.h"

#include "CResoTable.h"
#include "CommandRecord.h"
#include "Environment.h"
#include "ScreenSizeScan.h"
#include "TargetKind.h"

namespace
{

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
    return ScanScreenSize(text, u"Xx*");
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
