#pragma once

#include "Environment.h"
#include "Inspect.h"

#include "ElfBuilder.h"
#include "TempFolder.h"

/// A folder, a program, and files packed by hand to look into.
class InspectFixture : public testing::Test
{
protected:
    using Bytes = PayloadBuilder::Bytes;

    InspectFixture() : env(folder.Path("program")) {}

    static QByteArray Array(const Bytes &bytes)
    {
        return {reinterpret_cast<const char *>(bytes.data()), qsizetype(bytes.size())};
    }
    static Bytes OfText(const char *text) { return {text, text + strlen(text)}; }

    /// A bit of everything: an icon, two languages, a sound, a push image.
    static PayloadBuilder Sample(quint32 base = 0)
    {
        return PayloadBuilder()
            .Entry("AppLogo.img", OfText("0123456789"))
            .Entry("tune.mid", {})
            .Language(0, {{7, u"Hello"}, {3, u""}})
            .Language(12, {{3, u"\u4F60\u597D \"\\\n\U0001F600"}, {3, u"later"}})
            .Item(1, OfText("audio"))
            .Item(103000, OfText("pict"))
            .Base(base);
    }

    /// Reads a file that is right.
    InspectResult Read(const Bytes &bytes)
    {
        InspectResult result;
        EXPECT_EQ(InspectBytes(Array(bytes), result).toStdString(), "");
        return result;
    }
    /// What is wrong with a file.
    std::string Wrong(const QByteArray &bytes)
    {
        InspectResult result;
        return InspectBytes(bytes, result).toStdString();
    }
    std::string Wrong(const Bytes &bytes) { return Wrong(Array(bytes)); }

    TempFolder folder;
    Environment env;
};
