// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <vector>

class CLayoutRes;
class CResModel;
class CZulClass;

/// The names of the IDs that a reference of a type (TypeId) in a layout can be to. Images are those of the layout's
/// resolution, then those of Default; strings are the rows of the string table; for any ID all that the resolution
/// has, in the order of their making.
[[nodiscard]] std::vector<NarrowText> IdsToChoose(qint32 typeId, const CLayoutRes &layoutRes, CResModel &model);

/// The components of a layout that another of it can be moved into: all but itself and those in it, each before those
/// in it.
[[nodiscard]] std::vector<CZulClass *> ParentsToChoose(const CLayoutRes &layoutRes, const CZulClass &component);
