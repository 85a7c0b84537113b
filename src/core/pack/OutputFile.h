#pragma once

#include "HostFiles.h"

class Environment;

/// The host path of a file to be made: folders are matched without regard to case, the file's own name stays as it is.
[[nodiscard]] QByteArray OutputPath(const QString &path);

/// Opens a file empty for writing; not open: errno tells why. An old file is replaced by a new one of the same mode,
/// which costs half of emptying it; a link or a device is written through.
[[nodiscard]] FileHandle CreateOutput(const QByteArray &host);

/// Opens a file for writing behind its end.
[[nodiscard]] FileHandle AppendToOutput(const QByteArray &host);

/// Copies a whole file to `host`, with the permissions of the input and never read-only. 0; the positive error number
/// when the copy can't be opened; PACK_WRITE when it fell short.
[[nodiscard]] int CopyToOutput(Environment &env, const FileHandle &input, const QByteArray &host);
