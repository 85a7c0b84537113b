// SPDX-License-Identifier: MIT
#include "Phases.h"

int ConstructAppIcon(PackContext &context)
{
    Environment &env = context.Env();
    const QString name = env.settings.String("Application", "app_icon", "AppLogo.img");
    QString path = context.projectFolder + u'/' + name;
    env.WriteOutput("\r\n%s", qUtf8Printable(path));
    context.image.AddEntry(env.WideToNarrow(name));
    PackFile icon = context.files.Open(path);
    if (!icon.IsReadable()) {
        env.WriteOutput("\r\n[warning] App icon file does not exist in project folder, use default icon");
        path = env.ProgramDir() + name;
        icon = context.files.Open(path);
        if (!icon.IsReadable()) {
            env.WriteOutput("\r\n[error] Could not find the default icon in tool folder");
            return PACK_NO_ICON;
        }
    }
    const auto fail = [&env, path](ReadFailure failure) -> int {
        if (failure == ReadFailure::Open) {
            env.DebugTrace("Could not open file while read icon file : %s.\n", qUtf8Printable(path));
            return PACK_FILE_OPEN;
        }
        if (failure != ReadFailure::Size)
            return PACK_FILE_READ;
        env.DebugTrace("Get file info error while read icon file : %s.\n", qUtf8Printable(path));
        return PACK_FILE_INFO;
    };
    return ReadIntoPayload(context, icon, {fail});
}
