// SPDX-License-Identifier: MIT
#include "PictureFile.h"

#include "ImageConversion.h"

PictureFile::PictureFile(PackContext &packContext, const QString &picturePath, bool isConverted)
    : context(packContext), path(picturePath), converts(isConverted)
{
    if (converts)
        source = context.files.Find(path);
    else
        file = context.files.Open(path);
}

int PictureFile::Add(const std::function<int(const PackFile &, const QString &)> &add) const
{
    if (!converts)
        return add(file, path);
    const ConvertedImage converted(context.Env(), source, context.scratch);
    if (converted.Code() != 0)
        return PACK_NOT_THERE;
    return add(PackFiles::OpenMade(converted.Target()), QString::fromUtf8(converted.Target()));
}
