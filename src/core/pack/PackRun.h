// SPDX-License-Identifier: MIT
#pragma once

#include "PackImage.h"
#include "Phases.h"

/// The state of one pack.
struct PackRun
{
    CResModel &document;
    const packinfo info;
    const OutputGuard &guard;
    PackFiles files;
    ScratchFolder scratch;
    QByteArray inputHost;
    QByteArray outputHost;
    QByteArray sideHost;    // the payload alone; empty in a mode without it
    PayloadBuffer memory{}; // holds the payloads of the run, one at a time

    [[nodiscard]] Environment &Env() const { return document.env; }
};

/// Runs all phases and builds the payload, after `prefix`, in the run's memory. It is valid until the next one is
/// built. Returns 0 or a failure code; PACK_SAME_FILE if an output is a file that was read.
[[nodiscard]] int BuildPayload(PackRun &run, EntryPadding padding, quint64 base, QByteArrayView prefix,
                               QByteArrayView &payload);
