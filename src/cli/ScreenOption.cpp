// SPDX-License-Identifier: MIT
#include "ScreenOption.h"

#include "ErrorOutput.h"

using namespace Qt::StringLiterals;

bool ReadScreenSizes(const std::vector<std::string> &values, std::vector<ScreenSize> &sizes)
{
    for (const std::string &value : values) {
        const auto size = ParseScreenSize(value);
        if (!size) {
            Complain(u"--resolution %1 isn't a size such as 240x320"_s.arg(QString::fromStdString(value)));
            return false;
        }
        sizes.push_back(*size);
    }
    return true;
}
