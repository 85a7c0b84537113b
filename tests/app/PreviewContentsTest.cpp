// SPDX-License-Identifier: MIT
// Tests which images and texts the preview draws for a component: those that its properties refer to.
#include "PreviewContents.h"

#include "CLayoutRes.h"
#include "TestProject.h"

using namespace Qt::StringLiterals;

namespace
{

const char CATALOGUE[] =
    "<catalogue version='1'><enumeration name='Where'><item name='left'/><item name='bottom'/><item name='large'/>"
    "<item name='tile'/></enumeration>"
    "<structure name='Style'><member name='color' type='ZulColor'/><member name='h' type='Where'/>"
    "<member name='v' type='Where'/><member name='font' type='Where'/></structure>"
    "<class name='Base'><member name='bgColor' type='ZulColor'/><member name='picture' type='ZulImageSrc'/></class>"
    "<class name='Thing' base='Base'><member name='over' type='ZulImageSrc'/><member name='images' "
    "type='ZrpStateImage'/>"
    "<member name='text' type='ZulWString'/><member name='hint' type='ZulWString'/><member name='fit' type='Where'/>"
    "<member name='lineColor' type='ZulColor'/><member name='style' type='Style'/></class></catalogue>";
const char RESOURCES[] =
    "<APP><IMAGE id='ID_ALL' type='Normal'>all.png</IMAGE><IMAGE id='ID_UNSET' type='Normal'></IMAGE>"
    "<RESOLUTION width='240' height='320' class='image'><IMAGE id='ID_OWN' type='Normal'>own.png</IMAGE></RESOLUTION>"
    "<RESOLUTION width='320' height='240' class='image'><IMAGE id='ID_WIDE' type='Normal'>wide.png</IMAGE>"
    "<IMAGE id='ID_OWN' type='Normal'>other.png</IMAGE></RESOLUTION>"
    "<RESOLUTION width='240' height='320' class='layout'><LAYOUT>res\\l.xml</LAYOUT></RESOLUTION>"
    "<STRING>res\\ref_list_demo.txt</STRING></APP>";
const char LAYOUT[] =
    "<TarvoXML><Layout id='ID_LAYOUT'>"
    "<Thing picture='@ID_OWN' over='@ID_ALL' bgColor='#80102030' text='@ID_TITLE' name='box'><Thing name='in'/></Thing>"
    "<Thing images='(@ID_ALL,@ID_OWN,0,0)' hint='@ID_TITLE' text='@ID_NONE' fit='tile' lineColor='#010203'>"
    "<Style prop='style' color='#FF0A0B0C' h='left' v='bottom' font='large'/></Thing>"
    "<Thing picture='@ID_WIDE' over='ID_ALL' images='(@ID_UNSET,0,0,0)' text='@ID_NONE' bgColor='#102030'/>"
    "<Unknown picture='@ID_ALL'/></Layout></TarvoXML>";

} // namespace

TEST(PreviewContents, AreTheImagesAndTextsThatPropertiesReferTo)
{
    TestProject project(RESOURCES, "[Layout]\nfolders=1\ncatalogue=classes.xml\n");
    project.folder.Put("bin/classes.xml", CATALOGUE);
    project.folder.Put("demo/res/l.xml", LAYOUT);
    project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable({"ID_TITLE"}));
    CResDoc *const doc = project.Open();
    ASSERT_TRUE(doc);
    const auto *const layout = static_cast<const CLayoutRes *>(doc->root.FindFolder(KIND_LAYOUT, 3)->resources.First());
    const PreviewContents contents(*doc, layout->File()->resolution);
    const auto of = [&](size_t component) { return contents.Of(*layout->Components()[component]); };

    PreviewContent box;
    box.images = {"own.png", "all.png"}; // has the image of the base; with two images of one ID, that of the resolution
    box.backgroundAlpha = 0x80;
    EXPECT_EQ(of(0), box) << "a component with others in it shows no text";

    PreviewContent button;
    button.images = {"all.png"};
    button.fit = ImageFit::Tile;
    button.text =
        ShownText{u"Hello"_s, Qt::LeftToRight, 0x0C0B0A, Qt::AlignLeft | Qt::AlignBottom, 24, false, false, false};
    EXPECT_EQ(of(1), button);

    EXPECT_TRUE(of(2).IsEmpty()) << "of another resolution, no reference, without a file, no such text";
    EXPECT_EQ(of(2).backgroundAlpha, 255) << "a colour without alpha";
    EXPECT_TRUE(of(3).IsEmpty()) << "the class is unknown";
    EXPECT_TRUE(of(0).text == std::nullopt && !contents.Of(*layout->Components()[0]->subComponents[0]).text);
}
