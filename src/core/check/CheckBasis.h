// SPDX-License-Identifier: MIT
#pragma once

#include "TextContext.h"

#include <memory>

class CResDoc;

/// What a check of an open document rests on: the settings, as they are on the disk when this is made, and what the
/// text rules know.
struct CheckBasis
{
    /// The document must outlive this object.
    explicit CheckBasis(CResDoc &document);

    std::vector<Finding> faults; ///< of the settings, each with its rule in `code`
    std::shared_ptr<const CheckSettings> settings;
    TextContext texts;
    RowCheck rows;
};
