// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <map>

/// The bytes of a file that no part has been given yet. Ranges may overlap, or be outside the file: each byte is given
/// to the first that takes it.
class FileCover
{
public:
    /// The bytes must outlive this object and what `Take` returns.
    explicit FileCover(QByteArrayView bytes);

    /// Returns those bytes of a range that weren't taken before.
    [[nodiscard]] QByteArray Take(quint64 offset, quint64 size);

private:
    QByteArrayView file;
    std::map<quint64, quint64> gaps; // from the first byte to that behind the last; they neither overlap nor touch
};
