// SPDX-License-Identifier: MIT
#include "CheckBasis.h"

#include "CResDoc.h"
#include "Paths.h"

CheckBasis::CheckBasis(CResDoc &document)
    : settings(std::make_shared<CheckSettings>(ReadCheckSettings(DirectoryOf(document.PathName()), faults))),
      texts(document, *settings), rows(texts)
{
    faults.insert(faults.end(), texts.Faults().begin(), texts.Faults().end());
}
