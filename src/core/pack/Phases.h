#pragma once

#include "PackCodes.h"
#include "PackFiles.h"
#include "PackImage.h"
#include "PackLog.h"
#include "Packer.h"
#include "ResModel.h"
#include "ScratchFolder.h"

/// What the phases of one run share.
struct PackContext
{
    CResModel &document;
    const packinfo &info;
    PackImage &image;
    PackFiles &files;
    ScratchFolder &scratch;
    QString projectFolder; ///< host form, without a separator at its end

    [[nodiscard]] Environment &Env() const { return document.env; }
};

/// Runs all phases. 0, or the code of the one that failed; what was built so far is to be dropped then.
[[nodiscard]] int ConstructResources(PackContext &context);

// The phases, a file each: 0 or a PackCode. Their table in Phases.cpp gives their order and their lines.
[[nodiscard]] int ConstructAppIcon(PackContext &context);
[[nodiscard]] int ConstructPreview(PackContext &context);
[[nodiscard]] int ConstructV1(PackContext &context);
[[nodiscard]] int ConstructLanguages(PackContext &context);
[[nodiscard]] int ConstructFiles(PackContext &context);
[[nodiscard]] int ConstructImages(PackContext &context);
[[nodiscard]] int ConstructLayouts(PackContext &context);
