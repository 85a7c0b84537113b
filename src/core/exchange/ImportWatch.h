// SPDX-License-Identifier: MIT
#pragma once

#include "ImportPlan.h"

/// Is notified of each planned row of a source before the next row is planned, so that its output follows the lines of
/// the report about that row.
class IImportWatch
{
public:
    virtual ~IImportWatch() = default;
    virtual void RowPlanned(const ImportPlan &plan, size_t index) = 0;
};
