// SPDX-License-Identifier: MIT
#pragma once

#include "Workbook.h"

#include <QByteArray>

#include <vector>

class ZipFile;

/// A reference from one part of the package to another.
struct Relationship
{
    QByteArray id;
    QByteArray kind;   ///< such as "worksheet"; empty for a kind that the format doesn't define
    QByteArray target; ///< name of the other part; empty when it is outside of the package
};

/// Reads the relationships of the part `source`, in the order of the file. The empty name is the package itself.
[[nodiscard]] WorkbookResult ReadRelationships(const ZipFile &zip, const QByteArray &source,
                                               std::vector<Relationship> &relationships);

/// Returns the first relationship of that kind; null when there is none.
[[nodiscard]] const Relationship *FindByKind(const std::vector<Relationship> &relationships, QByteArrayView kind);
