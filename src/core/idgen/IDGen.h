// SPDX-License-Identifier: MIT
#pragma once

#include "Header.h"

#include <QStringList>

#include <vector>

class CResModel;
class Environment;
class IDPool;
class IDRecord;

/// Numbers the IDs of a project and writes the C headers with the numbers.
class IDGen
{
public:
    /// Gives every ID its value, in the byte order of the names. Returns 0; -1 without a pool; -2 if a range overflows,
    /// in which case the IDs visited so far have their new values.
    [[nodiscard]] static int FillValue(Environment &env, IDPool *pool);

    /// Numbers the IDs, and writes the headers to `outputFolder` unless that is empty. Returns 0, or the failure of
    /// FillValue, in which case no header is written. A header that can't be written isn't a failure.
    [[nodiscard]] static int Generate(IDPool *pool, const QString &outputFolder, CResModel &document);

    /// Numbers the IDs, and makes the headers that Generate would write to `outputFolder`, in the order of writing.
    /// Writes nothing. Returns the result of FillValue; there is no header unless it is 0.
    [[nodiscard]] static int MakeHeaders(IDPool *pool, const QString &outputFolder, CResModel &document,
                                         std::vector<GeneratedHeader> &headers);

    /// The same for IDs that are sorted already (SortedIds).
    [[nodiscard]] static int MakeHeaders(const std::vector<IDRecord *> &sorted, const QString &outputFolder,
                                         CResModel &document, std::vector<GeneratedHeader> &headers);

    /// The paths of the headers that `Generate` writes into `outputFolder`.
    [[nodiscard]] static QStringList Headers(const QString &outputFolder, const CResModel &document);
};
