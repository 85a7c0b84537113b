#pragma once

#include "Workbook.h"

#include <QByteArray>

#include <vector>

class ZipFile;

/// A part that another part of the package leads to.
struct Relationship
{
    QByteArray id;
    QByteArray kind;   ///< "worksheet"; empty for one that isn't of the format itself
    QByteArray target; ///< name of a part; empty when it leads out of the package
};

/// Reads where the part `source` leads to, in the order of the file; the package itself is the part with the empty
/// name.
[[nodiscard]] WorkbookResult ReadRelationships(const ZipFile &zip, const QByteArray &source,
                                               std::vector<Relationship> &relationships);

/// The first one of that kind; null when there is none.
[[nodiscard]] const Relationship *FindByKind(const std::vector<Relationship> &relationships, QByteArrayView kind);
