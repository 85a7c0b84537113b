#include "LayoutCommand.h"

using namespace Qt::StringLiterals;

QString LayoutCommand::CommandLine() const
{
    return tool + u" -i \""_s + input + u"\" -o \""_s + output + u"\" -x \""_s + xml + u"\" -t \""_s + table +
           u"\" -h \""_s + header + u'"' + (p ? u" -p "_s : QString()) + u" -e -E \""_s + subtool + u'"';
}
