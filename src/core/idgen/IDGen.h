#pragma once

#include "Header.h"

#include <QStringList>

#include <vector>

class CResModel;
class Environment;
class IDPool;

/// Numbers the IDs of a project and writes the C headers that carry the numbers.
class IDGen
{
public:
    /// Gives every ID its value from the byte order of the names. 0; -1 without a pool; -2 when a range overflows, and
    /// then the IDs visited so far have their new values.
    [[nodiscard]] static int FillValue(Environment &env, IDPool *pool);

    /// Numbers, and writes the headers into `outputFolder` unless that is empty. 0, or FillValue's failure, and then no
    /// header is written. A header that can't be written is no failure.
    [[nodiscard]] static int Generate(IDPool *pool, const QString &outputFolder, CResModel &document);

    /// Numbers, and gives the headers that Generate would write into `outputFolder`, in the order of their writing.
    /// Writes nothing. FillValue's result; no header when that isn't 0.
    [[nodiscard]] static int MakeHeaders(IDPool *pool, const QString &outputFolder, CResModel &document,
                                         std::vector<GeneratedHeader> &headers);

    /// The paths of the headers that `Generate` writes into `outputFolder`.
    [[nodiscard]] static QStringList Headers(const QString &outputFolder, const CResModel &document);
};
