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

const PictureFunctions *Functions()
{
    static const PictureFunctions *const functions = LoadFunctions();
    return functions;
}

} // namespace

bool CountAlphaOfPicture(const QByteArray &bytes, PictureBytes part, PictureAlpha &alpha)
{
    return Functions() && Functions()->countAlpha(bytes, part, alpha);
}

std::optional<quint64> SizeOfConvertedPicture(const QByteArray &bytes, QString &fault)
{
    if (Functions())
        return Functions()->measure(bytes, fault);
    fault = QStringLiteral("libmorvanite-pictures.so, which has the decoders of pictures, can't be loaded");
    return std::nullopt;
}

bool IsPictureModuleMissing()
{
    return isMissing;
}
