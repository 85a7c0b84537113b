// SPDX-License-Identifier: MIT
#include "ConvertedSizes.h"

#include "Conversion.h"
#include "FileFault.h"
#include "HostFiles.h"
#include "LazyPictures.h"

namespace
{

constexpr qint64 LARGEST_PICTURE = qint64(512) << 20; // that the converter takes

std::optional<quint64> SizeOfPicture(const QByteArray &file, QString &fault)
{
    const QString path = QString::fromUtf8(file);
    QByteArray bytes;
    if (const int error = ReadFile(path, bytes, LARGEST_PICTURE)) {
        fault = WhyNotRead(path, error);
        return std::nullopt;
    }
    return SizeOfConvertedPicture(bytes, fault);
}

} // namespace

DeviceSizes ConvertedSizes()
{
    return {SizeOfPicture, SizesOfConvertedLayouts};
}

bool SizesOfConvertedLayouts(Environment &env, const LayoutConverterCall &call, const IdNumbers &numbers,
                             LayoutSizes &sizes, QStringList &faults)
{
    const Options options{call.input, call.output, call.xml, call.table, call.header, call.subtool};
    Conversion conversion(env, options);
    const bool isMeasured = conversion.Measure(numbers, sizes);
    if (!isMeasured)
        faults = conversion.messages;
    return isMeasured;
}
