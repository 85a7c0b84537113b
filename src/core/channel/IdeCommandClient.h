#pragma once

#include <QByteArrayView>
#include <QString>

#include <functional>
#include <optional>

/// Sends one command to the running window and collects its report, as an IDE does.
///
/// Serves the report pipe meanwhile. Clients take turns under the lock file of the pipe, so a second one waits for the
/// first.
class IdeCommandClient
{
public:
    /// Gets the report piece by piece as it comes; a piece never ends within a character.
    using Sink = std::function<void(QStringView)>;

    /// The window's answer, once the report is complete. Nothing, and `error` says why, when no window runs, an IDE
    /// already serves the pipe, or the window goes away before it answers; what had come of the report is then in the
    /// sink.
    [[nodiscard]] static std::optional<quint32> Run(quint32 dwData, QByteArrayView record, const Sink &report,
                                                    QString &error);
};
