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
    if (context.trial)
        return AddMeasured(add);
    const ConvertedImage converted(context.Env(), source, context.scratch);
    if (converted.Code() != 0)
        return PACK_NOT_THERE;
    return add(PackFiles::OpenMade(converted.Target()), QString::fromUtf8(converted.Target()));
}

/// Calls `add` with the source, which has the size of the converted picture.
int PictureFile::AddMeasured(const std::function<int(const PackFile &, const QString &)> &add) const
{
    const PackTrial &trial = *context.trial;
    QString fault;
    std::optional<quint64> size;
    if (!trial.isOfResources)
        fault = ObstacleToConversion(context.Env(), source, context.scratch);
    if (fault.isEmpty() && trial.sizes.picture)
        size = trial.sizes.picture(source, fault);
    if (!size) {
        context.Reason(fault.isEmpty() ? QStringLiteral("the picture can't be measured") : fault);
        return PACK_NOT_THERE;
    }
    PackFile made = context.files.OpenHost(source);
    made.size = qint64(*size);
    return add(made, path);
}
