// SPDX-License-Identifier: MIT
#pragma once

#include "LayoutConverterCall.h"

#include <QHash>

#include <functional>
#include <optional>

class IdNumbers;

/// Converts a picture file in memory, given its bytes. Returns the size of the device's form in bytes, or nothing, and
/// in `fault` why the file can't be converted.
using MeasurePicture = std::optional<quint64> (*)(const QByteArray &bytes, QString &fault);

/// The sizes in bytes of converted layouts by ID.
using LayoutSizes = QHash<NarrowText, quint64>;

/// Converts the layouts of the call's input in memory, with these numbers of the IDs instead of a header's. The folder
/// of the tables may be empty. Returns false if a layout can't be converted; `faults` says why.
using MeasureLayouts = bool (*)(Environment &env, const LayoutConverterCall &call, const IdNumbers &numbers,
                                LayoutSizes &sizes, QStringList &faults);

/// What a trial of a pack asks in place of running the converters. Empty functions know no size.
struct DeviceSizes
{
    /// Returns the size of the device's form of a picture, given its absolute host path, or nothing and a fault.
    std::function<std::optional<quint64>(const QByteArray &file, QString &fault)> picture;
    MeasureLayouts layouts = nullptr;
};
