// SPDX-License-Identifier: MIT
#include "Phases.h"

namespace
{

int BeginBlock(PackContext &context)
{
    context.image.BeginBlock();
    return PACK_OK;
}

int EndBlock(PackContext &context)
{
    context.image.EndBlock();
    return PACK_OK;
}

/// One step of a run and its messages to the user.
struct Phase
{
    int (*run)(PackContext &);
    const char *firstLine;
    const char *errorLine; ///< ", result=" and the code follow
    const char *lastLine;
};

constexpr Phase PHASES[] = {
    {ConstructAppIcon, "\r\nconstruct app icon resource...", "\r\n[error] construct app icon resource error",
     "\r\nconstruct app icon resource done\r\n"},
    {ConstructPreview, "\r\nconstruct preview image resource...", "\r\n[error] construct preview image resource error",
     "\r\nconstruct preview image resource done\r\n"},
    {ConstructV1, "\r\nconstruct zep1.0 resource...", "\r\n[error] construct zep 1.0 resource error",
     "\r\nconstruct zep1.0 resource done\r\n"},
    {BeginBlock, "", "", "\r\nconstruct zep2.0 resource..."},
    {ConstructLanguages, "\r\nconstruct language resource...", "\r\n[error] construct language resource error",
     "\r\nconstruct language resource done\r\n"},
    {ConstructFiles, "\r\nconstruct file resource...", "\r\n[error] construct file resource error",
     "\r\nconstruct file resource done\r\n"},
    {ConstructImages, "\r\nconstruct image resource...", "\r\n[error] construct image resource error",
     "\r\nconstruct image resource done\r\n"},
    {ConstructLayouts, "\r\nconstruct layout resource...", "\r\n[error] construct layout resource error",
     "\r\nconstruct layout resource done\r\n"},
    {EndBlock, "", "", "\r\nconstruct zep2.0 resource done\r\n"},
};

} // namespace

int ConstructResources(PackContext &context)
{
    Environment &env = context.Env();
    for (const Phase &phase : PHASES) {
        if (*phase.firstLine)
            env.WriteOutput("%s", phase.firstLine);
        if (const int code = phase.run(context)) {
            env.WriteOutput("%s, result=%d", phase.errorLine, code);
            return code;
        }
        env.WriteOutput("%s", phase.lastLine);
    }
    return PACK_OK;
}
