// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"

#include <QByteArray>

#include <vector>

/// Returns what identifies a finding in a baseline and for other tools: rule, ID, language and a hash of what the
/// finding is based on, with tabs between them. It has no line numbers, so that it stays the same when other rows
/// change. `folder` is the absolute path of the project's folder.
[[nodiscard]] QByteArray FingerprintOf(const Finding &finding, const QString &folder);

/// The findings of a project that are accepted for now, as fingerprints (FingerprintOf). The file has one on each line,
/// sorted, so that lines of two branches merge.
class Baseline
{
public:
    /// Reads the bytes of a baseline. Adds a finding of the rule "baseline-line" for each line that isn't a
    /// fingerprint; `file` is its absolute path.
    void Parse(const QByteArray &bytes, const QString &file, std::vector<Finding> &findings);
    /// Moves the findings that the baseline has from `findings` to `known`. A fingerprint accepts as many findings as
    /// the baseline has lines with it. Adds a finding of the rule "baseline-stale" for each line that accepts none.
    void Apply(std::vector<Finding> &findings, std::vector<Finding> &known, const QString &folder) const;

    /// Returns the bytes of a baseline that accepts these findings.
    [[nodiscard]] static QByteArray Bytes(const std::vector<Finding> &findings, const QString &folder);

private:
    struct Line
    {
        QByteArray fingerprint;
        int number;
    };
    std::vector<Line> lines;
    QString path;
};
