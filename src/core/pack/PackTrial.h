// SPDX-License-Identifier: MIT
#pragma once

#include "DeviceSizes.h"
#include "PackSizes.h"

#include <vector>

/// Something that makes a pack fail.
struct PackFault
{
    int code = 0;  ///< of a pack that fails because of it
    QString about; ///< the ID, the file, or both; may be empty
    QString text;  ///< what is wrong, without a full stop
};

/// What a phase adds to the payload.
struct PackPart
{
    const char *name = "";
    size_t count = 0;  ///< of resources
    quint64 bytes = 0; ///< with their padding
};

/// A pack that is only tried: it looks at everything, finds everything that would make the pack fail, and computes the
/// sizes. It runs no converter, reads no contents of resources except for pictures and layouts, and writes nothing.
struct PackTrial
{
    DeviceSizes sizes; ///< set by the caller
    /// If true, only what determines the size of the payload is looked at: no headers, input or outputs. Set by the
    /// caller.
    bool isOfResources = false;

    std::vector<PackFault> faults; ///< in the order in which a pack would find them
    QStringList remarks;           ///< what a pack would leave out
    bool isExact = true;           ///< the sizes are known: no resource has a fault that changes them
    quint64 payload = 0;           ///< bytes
    quint64 output = 0;            ///< bytes of the output file; 0 if it isn't known
    std::vector<PackPart> parts;   ///< in the order of the phases
    std::vector<PackedSize> largest;

    /// The reasons for the next fault, in plain words. The code's text is the reason if there is none.
    QStringList reasons;
    void Note(int code, const QString &about);
};

/// Ends a step of a pack: returns the code of its failure or 0. A trial notes the failure and goes on, so this returns
/// 0. `trial` may be null.
[[nodiscard]] int AfterStep(PackTrial *trial, int code, const QString &about = {});

class Environment;

/// While it exists, the report of a trial goes nowhere, and explanations become reasons of faults.
class TrialOutput
{
public:
    TrialOutput(Environment &environment, PackTrial &packTrial);
    ~TrialOutput();
    TrialOutput(const TrialOutput &) = delete;
    TrialOutput &operator=(const TrialOutput &) = delete;

private:
    Environment &env;
    std::function<void(QStringView)> output;
    std::function<void(const QString &)> explain;
    int failures;
};
