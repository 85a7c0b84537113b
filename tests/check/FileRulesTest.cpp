// SPDX-License-Identifier: MIT
#include "CheckedProject.h"
#include "PictureFiles.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

/// A project whose list has these lines between `<APP>` in line 1 and `</APP>`.
struct CheckedFiles : CheckedProject
{
    explicit CheckedFiles(const QByteArrayList &lines) : CheckedProject("<APP>\n" + lines.join('\n') + "\n</APP>") {}
    void Put(const QByteArray &name, const QByteArray &bytes) const { folder.Put("demo/" + name, bytes); }
    /// The findings of a rule for some screens, by default all.
    std::vector<std::string> Findings(const QByteArray &rule, std::vector<ScreenSize> ofScreens = {})
    {
        screens = std::move(ofScreens);
        return CheckedProject::Findings({rule});
    }
};

} // namespace

TEST(FileRules, AMissingFileIsOneThatCannotBeReadAsWritten)
{
    CheckedFiles project({R"(<FILE id="ID_HERE">.\data\here.bin</FILE>)",
                          R"(<FILE id="ID_GONE">.\data\gone.bin</FILE>)", R"(<FILE id="ID_FOLDER">.\data</FILE>)",
                          R"(<FILE id="ID_NONE"></FILE>)", R"(<RESOLUTION width="320" height="240" class="image">)",
                          R"(<IMAGE id="ID_GONE_IMAGE">gone.png</IMAGE>)", "</RESOLUTION>"});
    project.Put("data/here.bin", "x");
    EXPECT_THAT(project.Findings("file-missing"),
                ElementsAre("demo.res.xml:3 ID_GONE: the file .\\data\\gone.bin doesn't exist",
                            "demo.res.xml:4 ID_FOLDER: .\\data isn't a regular file",
                            "demo.res.xml:5 ID_NONE: the list names no file",
                            "demo.res.xml:7 ID_GONE_IMAGE: the file gone.png doesn't exist"));
    EXPECT_EQ(project.Findings("file-missing", {{240, 320}}).size(), 3U) << "the other screen isn't checked";
}

TEST(FileRules, NamesThatDifferInCaseAndPathsOutOfTheProject)
{
    CheckedFiles project({R"(<FILE id="ID_SAME">Data\Here.bin</FILE>)", R"(<FILE id="ID_CASE">data\here.BIN</FILE>)",
                          R"(<FILE id="ID_ABOVE">..\above.bin</FILE>)",
                          R"(<FILE id="ID_DOTS">data\..\Data\Here.bin</FILE>)",
                          R"(<FILE id="ID_ABSOLUTE">/etc/hostname</FILE>)"});
    project.Put("Data/Here.bin", "x");
    project.Put("../above.bin", "x");
    EXPECT_THAT(project.Findings("file-case"),
                ElementsAre("demo.res.xml:3 ID_CASE: the file data\\here.BIN is called Data/Here.bin on the disk"));
    EXPECT_THAT(project.Findings("file-outside"),
                ElementsAre("demo.res.xml:4 ID_ABOVE: the file ..\\above.bin is above the project's folder",
                            "demo.res.xml:6 ID_ABSOLUTE: the path /etc/hostname is absolute"));
}

TEST(FileRules, ContentThatIsNotWhatTheNameSays)
{
    CheckedFiles project({R"(<FILE id="ID_WAV">a.wav</FILE>)", R"(<FILE id="ID_WAV2">b.WAV</FILE>)",
                          R"(<FILE id="ID_MP3">c.mp3</FILE>)", R"(<FILE id="ID_MP3B">d.mp3</FILE>)",
                          R"(<FILE id="ID_DATA">e.bin</FILE>)", R"(<IMAGE id="ID_JPG">f.jpg</IMAGE>)",
                          R"(<IMAGE id="ID_PNG">g.png</IMAGE>)", R"(<IMAGE id="ID_SHORT">h.png</IMAGE>)"});
    project.Put("a.wav", "no sound at all");
    project.Put("b.WAV", WaveFile(1, 1, 8000, 16));
    project.Put("c.mp3", "\xFF\xFB\x90\x64 frame");
    project.Put("d.mp3", "an MP3 file can begin with anything");
    project.Put("e.bin", PngFile(4, 4));
    project.Put("f.jpg", PngFile(4, 4));
    project.Put("g.png", "\x89PNG\r\n\x1A\n and no more");
    project.Put("h.png", "12345678");
    EXPECT_THAT(project.Findings("file-type"),
                ElementsAre("demo.res.xml:2 ID_WAV: the file a.wav doesn't begin as WAV files do",
                            "demo.res.xml:7 ID_JPG: the content of the file f.jpg is PNG"));
    EXPECT_THAT(project.Findings("image-unreadable"),
                ElementsAre("demo.res.xml:8 ID_PNG: the image g.png can't be read: the file ends before its size"));
    EXPECT_THAT(
        project.Findings("file-empty"),
        ElementsAre(
            "demo.res.xml:9 ID_SHORT: the file h.png has 8 bytes, and a pack refuses images of 8 bytes or less"));
}

TEST(FileRules, ImagesThatNoConverterTakes)
{
    CheckedFiles project({R"(<IMAGE id="ID_WEBP">a.png</IMAGE>)", R"(<IMAGE id="ID_SVG">b.svg</IMAGE>)",
                          R"(<IMAGE id="ID_JPEG">c.jpeg</IMAGE>)", R"(<IMAGE id="ID_DEVICE">d.img</IMAGE>)",
                          R"(<IMAGE id="ID_PUSH" type="Push">e.img</IMAGE>)", R"(<IMAGE id="ID_TIFF">f.tif</IMAGE>)",
                          R"(<IMAGE id="ID_NOISE">g.gif</IMAGE>)", R"(<IMAGE id="ID_FINE">h.GIF</IMAGE>)"});
    project.Put("a.png", "RIFF....WEBPVP8 ");
    project.Put("b.svg", "<?xml version='1.0'?>\n<!-- <b> -->\n<svg/>");
    project.Put("c.jpeg", JpegFile(4, 4));
    project.Put("d.img", "MIMG pixels of a device");
    project.Put("e.img", "MIMG pixels of a device");
    project.Put("f.tif", "II*. and so on");
    project.Put("g.gif", "neither of them");
    project.Put("h.GIF", GifFile(4, 4));
    const std::string ends = " doesn't end in bmp, gif, jpg or png, so the image can't be converted";
    EXPECT_THAT(project.Findings("image-format"),
                ElementsAre("demo.res.xml:2 ID_WEBP: the format of the image a.png is WebP, which can't be converted",
                            "demo.res.xml:3 ID_SVG: the format of the image b.svg is SVG, which can't be converted",
                            "demo.res.xml:4 ID_JPEG: the name c.jpeg" + ends,
                            "demo.res.xml:6 ID_PUSH: the name e.img" + ends,
                            "demo.res.xml:7 ID_TIFF: the name f.tif" + ends));
    EXPECT_THAT(project.Findings("file-type"), IsEmpty());
    EXPECT_THAT(
        project.Findings("image-unreadable"),
        ElementsAre("demo.res.xml:8 ID_NOISE: the image g.gif doesn't begin as BMP, GIF, JPEG and PNG files do"));
}

TEST(FileRules, EqualFilesCountWhereOnePayloadHasBoth)
{
    CheckedFiles project({R"(<FILE id="ID_A">a.bin</FILE>)", R"(<FILE id="ID_B">b.bin</FILE>)",
                          R"(<FILE id="ID_C">c.bin</FILE>)", R"(<FILE id="ID_D">a.bin</FILE>)",
                          R"(<RESOLUTION width="240" height="320" class="image">)", R"(<IMAGE id="ID_X">x.png</IMAGE>)",
                          R"(<IMAGE id="ID_Y">y.png</IMAGE>)", "</RESOLUTION>",
                          R"(<RESOLUTION width="320" height="240" class="image">)", R"(<IMAGE id="ID_Z">x.png</IMAGE>)",
                          R"(<IMAGE id="ID_X">x.png</IMAGE>)", "</RESOLUTION>", R"(<IMAGE id="ID_ANY">v.png</IMAGE>)"});
    const QByteArray longer(100'000, 'x');
    project.Put("a.bin", longer + "same");
    project.Put("b.bin", longer + "same");
    project.Put("c.bin", longer + "else");
    project.Put("x.png", PngFile(20, 10));
    project.Put("y.png", PngFile(20, 11));
    project.Put("v.png", PngFile(20, 11));
    const auto same = [](const std::string &place, const char *file, const char *first, const char *bytes) {
        return "demo.res.xml:" + place + ": the file " + file + " has the same bytes as " + first +
               "; one resource for both saves " + bytes + " bytes";
    };
    EXPECT_THAT(project.Findings("duplicate-file"), ElementsAre(same("3 ID_B", "b.bin", "a.bin of ID_A", "100004"),
                                                                same("5 ID_D", "a.bin", "a.bin of ID_A", "100004"),
                                                                same("12 ID_X", "x.png", "x.png of ID_Z", "63"),
                                                                same("14 ID_ANY", "v.png", "y.png of ID_Y", "63")));
    EXPECT_THAT(project.Findings("image-same-everywhere"),
                ElementsAre("demo.res.xml:7 ID_X: all 2 screens have this image with the same bytes; put the image "
                            "into Default once"));
}

TEST(FileRules, ImagesAndTheirScreens)
{
    CheckedFiles project(
        {R"(<RESOLUTION width="240" height="320" class="image">)", R"(<IMAGE id="ID_BAR">a.png</IMAGE>)",
         R"(<IMAGE id="ID_ICON">b.png</IMAGE>)", R"(<IMAGE id="ID_LARGE">c.png</IMAGE>)", "</RESOLUTION>",
         R"(<RESOLUTION width="320" height="240" class="image">)", R"(<IMAGE id="ID_BAR">d.png</IMAGE>)",
         R"(<IMAGE id="ID_ICON">e.png</IMAGE>)", "</RESOLUTION>", R"(<IMAGE id="ID_ANY">f.png</IMAGE>)"});
    project.Put("a.png", PngFile(240, 20));
    project.Put("b.png", PngFile(20, 20));
    project.Put("c.png", PngFile(241, 320));
    project.Put("d.png", PngFile(320, 20)); // as wide as the screen, and as high as on the other
    project.Put("e.png", PngFile(20, 48));
    project.Put("f.png", PngFile(999, 999));
    EXPECT_THAT(
        project.Findings("image-too-large"),
        ElementsAre("demo.res.xml:5 ID_LARGE: the image c.png has 241 x 320 pixels, more than the screen 240x320"));
    EXPECT_THAT(
        project.Findings("image-size-differs"),
        ElementsAre("demo.res.xml:9 ID_ICON: the size 20 x 48 on 320x240 isn't in proportion to 20 x 20 on 240x320"));
    EXPECT_THAT(project.Findings("image-resolution-missing"),
                ElementsAre("demo.res.xml:5 ID_LARGE: there is an image for 240x320, but none for 320x240"));
    EXPECT_THAT(project.Findings("image-resolution-missing", {{240, 320}}), IsEmpty());
    EXPECT_EQ(project.Findings("image-resolution-missing", {{240, 320}, {176, 220}}).size(), 3U);
}

TEST(FileRules, SoundsThatTheDeviceDoesNotPlay)
{
    CheckedFiles project({R"(<FILE id="ID_FINE">a.wav</FILE>)", R"(<FILE id="ID_WRONG">b.wav</FILE>)",
                          R"(<FILE id="ID_CUT">c.wav</FILE>)"});
    project.Put("a.wav", WaveFile(1, 1, 8000, 16));
    project.Put("b.wav", WaveFile(17, 2, 44100, 4));
    project.Put("c.wav", WaveFile(1, 1, 8000, 16).first(40));
    const QByteArray on = "[Severity]\naudio-format=warning\n";
    project.Put("morvanite-check.ini", on);
    const std::string cut = "demo.res.xml:4 ID_CUT: c.wav: its header is cut off";
    EXPECT_THAT(project.Findings("audio-format"), ElementsAre(cut));
    project.Put("morvanite-check.ini", on + "[Audio]\ncodec=PCM, 2\nRate=8000, 16000\nchannels=1\n");
    EXPECT_THAT(
        project.Findings("audio-format"),
        ElementsAre("demo.res.xml:3 ID_WRONG: b.wav: the codec is ima-adpcm, not pcm, adpcm; it has 44100 samples "
                    "a second, not 8000, 16000; it has 2 channels, not 1",
                    cut));
}

TEST(FileRules, LinesOfTheListsOfFurtherFiles)
{
    CheckedFiles project(QByteArrayList{});
    const QByteArray fits = ".\\" + QByteArray(253, 'f');
    project.Put(fits.sliced(2), "x");
    project.Put("a/chime.mid", "x");
    project.Put("b/chime.mid", "x");
    project.Put("b/zep-2.0", "x");
    project.Put("preview.lst", "a\\chime.mid\r\n\r\nb\\chime.mid\r\na\\gone.png");
    project.Put("demo_res.lst", "a\\chime.mid\n.\\B\\CHIME.MID\r\n.\\b\\zep-2.0\r\n" + fits + "\r\n.\\x" + fits +
                                    "\r\n.\\b\\chime.mid\r\n");
    EXPECT_THAT(
        project.Findings("list-line"),
        ElementsAre("demo_res.lst:3 : the name zep-2.0 is reserved for a part of the payload",
                    "demo_res.lst:5 : the line has more than 255 bytes, and the rest is read as the next line",
                    "demo_res.lst:6 : the file name chime.mid is also in line 1; the device finds only one of them",
                    "preview.lst:4 : the file a\\gone.png doesn't exist, so a pack leaves it out"));
}

TEST(FileRules, PicturesThatAreCutOffOrThatTheConverterDoesNotRead)
{
    struct Case
    {
        QByteArray name, bytes;
        const char *fault; // empty if there is none
    };
    const QByteArray wide("\xFF\xC1\0\x11\x0C\0\4\0\4\3ccccccccc", 19); // 12 bits
    const QByteArray longPart = "\xFF\xE2\xFF\xFF" + QByteArray(0xFFFD, 'p');
    const Case cases[] = {
        {"a.bmp", BmpFile(3, -5), ""},
        {"b.bmp", BmpFile(3, -5).chopped(1), "the file ends before its last row"},
        {"c.bmp", BmpFile(3, 5).replace(14, 1, "\x41"), "its header has 65 bytes, a form that isn't known"},
        {"d.bmp", BmpFile(0x7FFFFFFF, 0), "the file ends before its last row"},
        {"e.png", PngFile(3, 5) + "trailing bytes", ""},
        {"f.png", PngFile(3, 5).chopped(13), "the file ends before its end mark (IEND)"},
        {"g.png", PngFile(30'000, 3'000), "it has 30000 x 3000 pixels, and the converter reads at most 64000000"},
        {"h.png", PngFile(3, 5, 1), "it has the colour type 1, which doesn't exist"},
        {"i.png", PngFile(0, 5), "it has no pixels (0 x 5)"},
        {"j.gif", GifFile(3, 5, "!\xFE\3hey" + QByteArray(1, '\0')), ""},
        {"k.gif", GifFile(3, 5, "!\xFE\x7Fhey"), "the file ends before its first frame"},
        {"l.jpg", JpegFile(3, 5, longPart + longPart + "\xFF" + longPart), ""},
        {"m.jpg", "\xFF\xD8" + wide, "a channel has 12 bits, and the converter reads 8"},
        {"n.jpg", JpegFile(3, 5).replace("\xFF\xC0", "\xFF\xC3"),
         "its coding (3) is one that the converter doesn't read"},
        {"o.jpg", JpegFile(3, 5, longPart).first(50'000), "the file ends before its size"},
    };
    QByteArrayList lines;
    for (const Case &picture : cases)
        lines.append("<IMAGE id=\"ID_" + picture.name.first(1).toUpper() + "\">" + picture.name + "</IMAGE>");
    CheckedFiles project(lines);
    std::vector<std::string> wanted;
    for (size_t i = 0; i < std::size(cases); ++i) {
        const auto &[name, bytes, fault] = cases[i];
        project.Put(name, bytes);
        if (*fault)
            wanted.push_back("demo.res.xml:" + std::to_string(i + 2) + " ID_" + name.first(1).toUpper().toStdString() +
                             ": the image " + name.toStdString() + " can't be read: " + fault);
    }
    EXPECT_EQ(project.Findings("image-unreadable"), wanted);
}
