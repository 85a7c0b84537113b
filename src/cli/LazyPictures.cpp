// SPDX-License-Identifier: MIT
#include "LazyPictures.h"

#include "Module.h"
#include "PictureModule.h"
#include "Session.h"

using namespace Qt::StringLiterals;

namespace
{

const PictureFunctions *LoadFunctions()
{
    const auto *const functions =
        static_cast<const PictureFunctions *>(SymbolOfModule("libmorvanite-pictures.so", PICTURE_FUNCTIONS));
    if (!functions)
        Complain(u"libmorvanite-pictures.so, which must be beside the program, can't be loaded, so \"image-alpha-few\" "
                 "finds nothing"_s);
    return functions;
}

} // namespace

bool CountAlphaOfPicture(const QByteArray &bytes, PictureAlpha &alpha)
{
    static const PictureFunctions *const functions = LoadFunctions();
    return functions && functions->countAlpha(bytes, alpha);
}
