// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <vector>

class CLayoutRes;
class CResModel;
class CZulClass;

/// The names of the IDs that a reference of a type (TypeId) in a layout can refer to. For an image, these are the
/// images of the layout's resolution and then those of Default; for a string, the rows of the string table; for any ID,
/// all IDs of the resolution and those for any resolution, in the order in which they were made.
[[nodiscard]] std::vector<NarrowText> IdsToChoose(qint32 typeId, const CLayoutRes &layoutRes, CResModel &model);

/// The components of a layout into which `component` can be moved: all except itself and the components in it. Each is
/// before the components in it.
[[nodiscard]] std::vector<CZulClass *> ParentsToChoose(const CLayoutRes &layoutRes, const CZulClass &component);
