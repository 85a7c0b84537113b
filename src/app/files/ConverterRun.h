#pragma once

#include "TemporaryFolder.h"

#include <QObject>

#include <functional>
#include <memory>

/// Has the image converter make the device's form of a picture, while the program goes on. One picture at a time: a new
/// start ends the run before it. Nothing is written but into a temporary folder.
class ConverterRun : public QObject
{
public:
    /// Gets the host's path of the converted file, which is there until the next `Start` or `Stop`, or why there is
    /// none, for a sentence that begins with "The converter".
    using Then = std::function<void(const QByteArray &made, const QString &problem)>;

    explicit ConverterRun(QString converterPath, QObject *parent = nullptr);
    ~ConverterRun() override;

    /// `source` is an absolute host path in bytes, and `kind` the extension by which the converter may know its format.
    /// A converter that takes longer than `limitMs` is ended.
    void Start(const QByteArray &source, const QByteArray &kind, Then then, int limitMs = 10'000);
    /// Ends a run without a result, and removes what was made.
    void Stop();

private:
    class Run;

    QString converter;
    std::shared_ptr<TemporaryFolder> folder; // made when it is needed first; there until the last run has ended
    Run *run = nullptr;
    int number = 0;
};
