// SPDX-License-Identifier: MIT
#include "Phases.h"

namespace
{

/// From here on files are read ahead: not before, because the phases up to here may convert pictures for minutes, in
/// which files can change.
int BeginBlock(PackContext &context)
{
    std::vector<QByteArray> hosts;
    ListFiles(context, hosts);
    ListImages(context, hosts);
    context.files.WillOpen(std::move(hosts));
    context.image.BeginBlock();
    return PACK_OK;
}

int EndBlock(PackContext &context)
{
    context.image.EndBlock();
    return PACK_OK;
}

size_t CountOf(const PackImage &image)
{
    return image.entries.size() + image.items.size();
}

/// One step of a run and its messages to the user.
struct Phase
{
    int (*run)(PackContext &);
    const char *name; ///< of what it adds; null if it adds no resources
    const char *firstLine;
    const char *errorLine; ///< ", result=" and the code follow
    const char *lastLine;
};

constexpr Phase PHASES[] = {
    {ConstructAppIcon, "application icon", "\r\nconstruct app icon resource...",
     "\r\n[error] construct app icon resource error", "\r\nconstruct app icon resource done\r\n"},
    {ConstructPreview, "preview images", "\r\nconstruct preview image resource...",
     "\r\n[error] construct preview image resource error", "\r\nconstruct preview image resource done\r\n"},
    {ConstructV1, "files of version 1.0", "\r\nconstruct zep1.0 resource...",
     "\r\n[error] construct zep 1.0 resource error", "\r\nconstruct zep1.0 resource done\r\n"},
    {BeginBlock, nullptr, "", "", "\r\nconstruct zep2.0 resource..."},
    {ConstructLanguages, "languages", "\r\nconstruct language resource...",
     "\r\n[error] construct language resource error", "\r\nconstruct language resource done\r\n"},
    {ConstructFiles, "files", "\r\nconstruct file resource...", "\r\n[error] construct file resource error",
     "\r\nconstruct file resource done\r\n"},
    {ConstructImages, "images", "\r\nconstruct image resource...", "\r\n[error] construct image resource error",
     "\r\nconstruct image resource done\r\n"},
    {ConstructLayouts, "layouts", "\r\nconstruct layout resource...", "\r\n[error] construct layout resource error",
     "\r\nconstruct layout resource done\r\n"},
    {EndBlock, nullptr, "", "", "\r\nconstruct zep2.0 resource done\r\n"},
};

} // namespace

QString PackContext::Named(const CFileRes &res) const
{
    return QStringLiteral("%1 (%2)").arg(Env().NarrowToWide(res.Id()->name), Env().NarrowToWide(res.path));
}

int FailPhase(Environment &env, const char *errorLine, int code)
{
    env.WriteOutput("%s, result=%d", errorLine, code);
    return code;
}

int ConstructResources(PackContext &context)
{
    Environment &env = context.Env();
    for (const Phase &phase : PHASES) {
        if (*phase.firstLine)
            env.WriteOutput("%s", phase.firstLine);
        const size_t countBefore = CountOf(context.image);
        const quint64 bytesBefore = context.image.DataSize();
        context.errorLine = phase.errorLine;
        if (const int code = context.After(phase.run(context)))
            return FailPhase(env, phase.errorLine, code);
        if (context.trial && phase.name)
            context.trial->parts.push_back(
                {phase.name, CountOf(context.image) - countBefore, context.image.DataSize() - bytesBefore});
        env.WriteOutput("%s", phase.lastLine);
    }
    return PACK_OK;
}
