// SPDX-License-Identifier: MIT
#pragma once

#include "PackOptions.h"
#include "Text.h"

#include <QStringList>

#include <vector>

class CResModel;
class OutputFile;
struct PackRun;
struct PackTrial;

/// What a pack attaches the payload to.
enum PackMode : qint32
{
    PACK_TO_TARGET = 0, ///< an ELF file gets a new section, and a side file is written
    PACK_TO_DLL = 1,    ///< the payload is appended to a DLL
};

/// The parameters of one pack.
struct packinfo
{
    NarrowText inputfilename;  ///< the application file as built; only read
    NarrowText outputfilename; ///< the file to make; empty: the input's name and ".pkd"
    qint32 packmode = PACK_TO_TARGET;
    qint16 scope = -1; ///< resolution index of the target, -1 if it isn't known
    qint32 imageconvert = 0;
    qint32 ver = 0;
    QStringList projectFiles; ///< absolute paths of the files the project was read from; no output replaces one
    /// The folder with the generated headers and the layout converter's tables; empty: the folders that the settings
    /// name.
    QString headers;
    /// Absolute path of the file that the caller writes after the pack; empty: none. It replaces no file of the pack.
    QString depfile;
    QString temp;       ///< a folder for the pack's own temporary files; empty: beside the sources
    quint64 budget = 0; ///< the most bytes that the payload may have; 0: no limit
    /// The most bytes in memory of small files, and of files that the pack makes, such as converted pictures.
    quint64 fileMemory = quint64(20) << 20;
    PackOptions options;
};

/// Turns a project's resources into one payload and attaches it to the application file.
class Packer
{
public:
    /// Returns 0, or a failure code: -1000 or less, or the positive error number of an output file that couldn't be
    /// opened. The IDs must have been numbered, and the project's folder must be the current folder. `inputs`, if not
    /// null, gets the host path of every file that was read.
    [[nodiscard]] static int Pack(const packinfo &parameters, CResModel &document,
                                  std::vector<QByteArray> *inputs = nullptr);

    /// Finds out what would make a pack fail, and its sizes, without writing anything (PackTrial). The IDs must have
    /// been numbered, and the project's folder must be the current folder.
    static void Try(const packinfo &parameters, CResModel &document, PackTrial &trial);
    /// Does the same for the resources alone: only `packmode`, `scope`, `imageconvert` and `budget` count. The IDs need
    /// no numbers.
    static void Measure(const packinfo &info, CResModel &document, PackTrial &trial);

private:
    [[nodiscard]] static int PackToTarget(PackRun &run);
    [[nodiscard]] static int PackToDLL(PackRun &run);
};
