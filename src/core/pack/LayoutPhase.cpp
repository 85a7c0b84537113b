#include "Phases.h"

int ConstructLayouts(PackContext &context)
{
    // No tree has layout folders: the fixed tree of a project has none, and nothing else makes one.
    context.Env().WriteOutput("\r\nthere are no any layout xml ");
    return PACK_OK;
}
