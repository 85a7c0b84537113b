// SPDX-License-Identifier: MIT
#pragma once

#include "TemporaryFolder.h"

#include <QObject>

#include <functional>
#include <memory>

/// Runs the image converter in the background to make the device's form of a picture. Converts one picture at a time: a
/// new start ends the previous run. Writes only to a temporary folder.
class ConverterRun : public QObject
{
public:
    /// Receives the host's path of the converted file, which exists until the next `Start` or `Stop`, or the reason why
    /// there is none, as the end of a sentence that begins with "The converter".
    using Then = std::function<void(const QByteArray &made, const QString &problem)>;

    explicit ConverterRun(QString converterPath, QObject *parent = nullptr);
    ~ConverterRun() override;

    /// `source` is an absolute host path in bytes, and `kind` the extension from which the converter can tell its
    /// format. The converter is killed if it takes longer than `limitMs`.
    void Start(const QByteArray &source, const QByteArray &kind, Then then, int limitMs = 10'000);
    /// Ends a run without a result, and removes the converted file.
    void Stop();

private:
    class Run;

    QString converter;
    std::shared_ptr<TemporaryFolder> folder; // made at first use; exists until the last run has ended
    Run *run = nullptr;
    int number = 0;
};
