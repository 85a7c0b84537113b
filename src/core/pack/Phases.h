// SPDX-License-Identifier: MIT
#pragma once

#include "PackCodes.h"
#include "PackFiles.h"
#include "PackImage.h"
#include "PackLog.h"
#include "PackTrial.h"
#include "Packer.h"
#include "PictureConverters.h"
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
    PictureConverters &converters;
    PackTrial *trial;           ///< null in a pack
    QString projectFolder;      ///< host path without a separator at its end
    const char *errorLine = ""; ///< of the phase that runs; see FailPhase

    [[nodiscard]] Environment &Env() const { return document.env; }

    /// Ends a step, such as a resource, whose failure doesn't keep a trial from looking at the next one (AfterStep).
    /// The size of what failed is then unknown.
    [[nodiscard]] int After(int code, const QString &about = {}) const
    {
        if (code != 0 && trial)
            trial->isExact = false;
        return AfterStep(trial, code, about);
    }
    /// Tells a trial the reason of the failure that a step is about to return.
    void Reason(const QString &text) const
    {
        if (trial)
            trial->reasons.append(text);
    }
    /// Names a resource to a user: its ID and its path as stored.
    [[nodiscard]] QString Named(const CFileRes &res) const;
};

/// A reason (PackContext::Reason).
inline const QString FILE_MISSING = QStringLiteral("the file does not exist");

/// Runs all phases. Returns 0, or the code of the phase that failed; the caller must then discard what was built so
/// far.
[[nodiscard]] int ConstructResources(PackContext &context);

/// Writes the line about a phase that fails with `code`, and returns the code.
int FailPhase(Environment &env, const char *errorLine, int code);

// The phases, each in a file of its own. They return 0 or a PackCode. The table in Phases.cpp has their order and their
// messages.
[[nodiscard]] int ConstructAppIcon(PackContext &context);
[[nodiscard]] int ConstructPreview(PackContext &context);
[[nodiscard]] int ConstructV1(PackContext &context);
[[nodiscard]] int ConstructLanguages(PackContext &context);
[[nodiscard]] int ConstructFiles(PackContext &context);
[[nodiscard]] int ConstructImages(PackContext &context);
[[nodiscard]] int ConstructLayouts(PackContext &context);

// Add the host paths of the files that these phases will open, in their order: not of images that are converted. They
// add nothing if a resource has no ID, with which the phase fails.
void ListFiles(const PackContext &context, std::vector<QByteArray> &hosts);
void ListImages(const PackContext &context, std::vector<QByteArray> &hosts);
