// SPDX-License-Identifier: MIT
#include "LazyPictures.h"

#include "Module.h"
#include "PictureModule.h"

#include <atomic>

namespace
{

std::atomic<bool> isMissing = false;

const PictureFunctions *LoadFunctions()
{
    const auto *const functions =
        static_cast<const PictureFunctions *>(SymbolOfModule("libmorvanite-pictures.so", PICTURE_FUNCTIONS));
    isMissing = !functions;
    return functions;
}

} // namespace

bool CountAlphaOfPicture(const QByteArray &bytes, PictureAlpha &alpha)
{
    static const PictureFunctions *const functions = LoadFunctions();
    return functions && functions->countAlpha(bytes, alpha);
}

bool IsPictureModuleMissing()
{
    return isMissing;
}
