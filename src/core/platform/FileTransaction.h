#pragma once

#include "FileReplacement.h"

#include <QStringList>

#include <optional>
#include <vector>

class Environment;

/// What becomes of the other files of a transaction when the system refuses to put one into its place.
enum class IfRefused
{
    Stop, ///< those behind it stay as they were
    GoOn, ///< it is made anew at every save, and none of the others depends on it
};

/// Holds back the files that an environment replaces until they are committed together, so that a save that fails in
/// its second file leaves the first as it was. One at a time in an environment.
class FileTransaction
{
public:
    explicit FileTransaction(Environment &environment);
    ~FileTransaction(); ///< drops what wasn't committed
    FileTransaction(const FileTransaction &) = delete;
    FileTransaction &operator=(const FileTransaction &) = delete;

    /// Writes a file beside its place. 0, or the system's error number.
    [[nodiscard]] int Write(QStringView path, QByteArrayView bytes, IfRefused ifRefused);

    /// The absolute paths of the written files that replace one with other bytes.
    [[nodiscard]] QStringList Replaced() const;

    /// Puts all written files into their places, in the order of writing, and ends the transaction. The path of the
    /// file that the system refused, as it was handed in; those before it have changed.
    [[nodiscard]] std::optional<QString> Commit();

private:
    void End();

    /// A written file that waits for its place.
    struct Staged
    {
        FileReplacement file;
        QString path;
        IfRefused ifRefused;
    };

    Environment &env;
    std::vector<Staged> staged;
};
