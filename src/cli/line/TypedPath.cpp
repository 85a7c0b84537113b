// SPDX-License-Identifier: MIT
#include "TypedPath.h"

#include "CurrentFolder.h"
#include "ExitStatus.h"
#include "Messages.h"
#include "TypedText.h"
#include "Utf16.h"
#include "Utf16Paths.h"

#include <unistd.h>

std::u16string AbsoluteTypedPath(const std::string &typed)
{
    const std::u16string path = Utf16Of(typed);
    if (path.empty())
        return path;
    if (!IsRelativeUtf16Path(path))
        return CanonicalUtf16Path(path);
    const std::string folder = CurrentFolderBytes();
    if (const std::string why = WhyNotUsable(folder); !why.empty()) {
        ComplainUtf8(why);
        _exit(FinalStatus(EXIT_WRONG_USE));
    }
    return CanonicalUtf16Path(Utf16Of(folder) + u'/' + path);
}
