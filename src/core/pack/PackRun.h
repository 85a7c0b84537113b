#pragma once

#include "PackImage.h"
#include "Phases.h"

/// One pack from its start to its end.
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
    PayloadBuffer memory{}; // each payload of the run lies in it, one at a time

    [[nodiscard]] Environment &Env() const { return document.env; }
};

/// Runs all phases and puts the payload, behind `prefix`, into the run's memory, where it stays until the next one is
/// built. 0 or a failure code; PACK_SAME_FILE when an output is a file that was read.
[[nodiscard]] int BuildPayload(PackRun &run, EntryPadding padding, quint64 base, QByteArrayView prefix,
                               QByteArrayView &payload);
