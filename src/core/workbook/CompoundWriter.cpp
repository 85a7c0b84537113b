// SPDX-License-Identifier: MIT
#include "CompoundFile.h"

#include <gsf/gsf.h>

void CompoundWriter::Release::operator()(void *object) const
{
    g_object_unref(object);
}

CompoundWriter::CompoundWriter(const char *name, std::FILE *file)
    : output(gsf_output_stdio_new_FILE("", file, /*keep_open=*/TRUE)), container(gsf_outfile_msole_new(output.get())),
      stream(gsf_outfile_new_child(container.get(), name, FALSE))
{
}

void CompoundWriter::Write(QByteArrayView piece)
{
    isWritten = isWritten && stream &&
                gsf_output_write(stream.get(), size_t(piece.size()), reinterpret_cast<const guint8 *>(piece.data()));
}

WorkbookResult CompoundWriter::Close()
{
    isWritten = isWritten && stream && gsf_output_close(stream.get()) && gsf_output_close(GSF_OUTPUT(container.get()));
    if (!isWritten)
        return {WorkbookFault::CannotWrite, QStringLiteral("the compound file can't be written")};
    return {};
}
