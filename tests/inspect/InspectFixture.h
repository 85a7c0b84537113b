// SPDX-License-Identifier: MIT
#pragma once

#include "Environment.h"
#include "Inspect.h"

#include "ElfBuilder.h"
#include "TempFolder.h"

#include <gmock/gmock.h>

/// A folder, a program, and files packed by hand for inspection.
class InspectFixture : public testing::Test
{
protected:
    using Bytes = PayloadBuilder::Bytes;

    InspectFixture() : env(folder.Path("program")) {}

    /// Has something of each kind: an icon, two languages, a sound, a push image.
    static PayloadBuilder Sample(quint32 base = 0)
    {
        return PayloadBuilder()
            .Entry("AppLogo.img", "0123456789")
            .Entry("tune.mid", "")
            .Language(0, {{7, u"Hello"}, {3, u""}})
            .Language(12, {{3, u"\u4F60\u597D \"\\\n\U0001F600"}, {3, u"later"}})
            .Item(1, "audio")
            .Item(103000, "pict")
            .Base(base);
    }

    /// Inspects a file. Returns the error, or an empty string.
    std::string Wrong(const Bytes &bytes)
    {
        return InspectBytes(QByteArray::fromStdString(bytes), result).toStdString();
    }
    /// Inspects a file that has no error.
    const InspectResult &Read(const Bytes &bytes)
    {
        EXPECT_EQ(Wrong(bytes), "");
        return result;
    }

    TempFolder folder;
    Environment env;
    InspectResult result;
};
