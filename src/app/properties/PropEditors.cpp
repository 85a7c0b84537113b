#include "PropEditors.h"

std::unique_ptr<CPropEditor> MakeEditor(const PropertyRow &, IEditControls &, CResModel &)
{
    return nullptr;
}
