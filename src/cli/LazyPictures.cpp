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
        Complain(u"libmorvanite-pictures.so, which must be beside the program, can't be loaded, so pictures can't be "
                 "examined"_s);
    return functions;
}

const PictureFunctions *Functions()
{
    static const PictureFunctions *const functions = LoadFunctions();
    return functions;
}

} // namespace

bool CountAlphaOfPicture(const QByteArray &bytes, PictureAlpha &alpha)
{
    return Functions() && Functions()->countAlpha(bytes, alpha);
}

std::optional<quint64> SizeOfConvertedPicture(const QByteArray &bytes, QString &fault)
{
    if (Functions())
        return Functions()->measure(bytes, fault);
    fault = u"libmorvanite-pictures.so, which has the decoders of pictures, can't be loaded"_s;
    return std::nullopt;
}
