// SPDX-License-Identifier: MIT
// Tests the preview that draws the images and texts of its components, in a window.
#include "CLotScreenView.h"
#include "StringFileBytes.h"
#include "TestWindow.h"

#include <QImage>

namespace
{

/// A project whose layout has an image in its own size, the same image stretched, a text, a reference to a missing
/// resource, and tiles far beyond the screen.
struct ArtWindow : TestWindow
{
    explicit ArtWindow(bool hasPictures)
        : TestWindow(WITH_LAYOUTS + "catalogue=catalogue.xml\npictures=" + (hasPictures ? "1" : "0") +
                     "\n[split3rd]\nwidth=100\n")
    {
        folder.Put("bin/catalogue.xml",
                   "<catalogue version=\"1\"><enumeration name=\"Fit\"><item name=\"stretch\"/><item name=\"tile\"/>"
                   "</enumeration><class name=\"Thing\"><member name=\"pos\" type=\"ZulPoint\"/><member name=\"size\" "
                   "type=\"ZulSize\"/><member name=\"anchor\" type=\"ZulFPoint\"/><member name=\"fit\" type=\"Fit\"/>"
                   "<member name=\"picture\" type=\"ZulImageSrc\"/><member name=\"text\" type=\"ZulWString\"/>"
                   "<member name=\"color\" type=\"ZulColor\"/></class></catalogue>");
        MakeProject("demo", "<APP><IMAGE id=\"ID_RED\" type=\"Normal\">.\\res\\RED.png</IMAGE>"
                            "<STRING>res\\ref_list_demo.txt</STRING>" +
                                LAYOUT_LIST + "</APP>");
        folder.Put("demo/res/ref_list_demo.txt", StringFileBytes("Number of Language|1\nString ID|Resource Type|"
                                                                 "Description|English(0)\nID_TEXT|Normal||MMMMMM\n"
                                                                 "##number|1\n"));
        folder.Put("demo/res/l.xml",
                   "<TarvoXML><Layout id=\"ID_LAYOUT_A\"><Thing pos=\"(0,0)\" size=\"(60,60)\" picture=\"@ID_RED\"/>"
                   "<Thing pos=\"(60,0)\" size=\"(60,60)\" fit=\"stretch\" picture=\"@ID_RED\"/>"
                   "<Thing pos=\"(0,60)\" size=\"(120,40)\" color=\"#0000FF\" text=\"@ID_TEXT\"/>"
                   "<Thing pos=\"(0,100)\" size=\"(120,40)\" picture=\"@ID_NONE\"/><Thing pos=\"(0,140)\" "
                   "size=\"(2147483647,2147483647)\" fit=\"tile\" picture=\"@ID_RED\"/></Layout></TarvoXML>");
        PutPicture(Qt::red);
        Start({Project()});
        Frame().setGeometry(0, 0, 790, 600);
        Child().Selected().SelectFolder(Document().root.FindFolder(KIND_LAYOUT, 3));
        Settle();
        View().setFixedSize(260, 340);
        View().Select(nullptr);
        Settle();
    }
    void PutPicture(Qt::GlobalColor color) const
    {
        QImage picture(20, 20, QImage::Format_RGB32);
        picture.fill(color);
        EXPECT_TRUE(picture.save(folder.Path("demo/res/red.png")));
    }
    [[nodiscard]] CLotScreenView &View() const { return Find<CLotScreenView>(Child()); }
    /// Returns the painted image, from the corner of the screen on.
    [[nodiscard]] QImage Painted() const
    {
        const PreviewPlace place = View().Place();
        const QPoint corner = View().Zoom().ScreenCorner(place.client) - place.scroll;
        return View().viewport()->grab().toImage().copy(QRect(corner, QSize(240, 320)));
    }
    [[nodiscard]] bool IsPainted(QPoint point, Qt::GlobalColor color) const
    {
        return Painted().pixelColor(point) == QColor(color);
    }
};

} // namespace

TEST(PreviewArt, DrawsImagesAndTextsInTheFramesOfTheirComponents)
{
    ArtWindow window(true);
    ASSERT_TRUE(window.WaitFor([&] { return window.IsPainted({30, 30}, Qt::red); }));
    EXPECT_FALSE(window.IsPainted({10, 10}, Qt::red)) << "in its own size";
    EXPECT_TRUE(window.IsPainted({62, 2}, Qt::red)) << "stretched";
    EXPECT_TRUE(window.IsPainted({200, 300}, Qt::red)) << "tiles";
    const auto inks = [&](const QRect &part, const auto &isInk) {
        const QImage image = window.Painted().copy(part);
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += isInk(image.pixelColor(x, y)) ? 1 : 0;
        }
        return count;
    };
    EXPECT_GT(inks({0, 60, 120, 40}, [](const QColor &color) { return color.blue() > 200 && color.red() < 80; }), 50);
    EXPECT_GT(inks({0, 100, 120, 40}, [](const QColor &color) { return color.value() < 90; }), 10)
        << "the label of a component with a missing resource";

    window.PutPicture(Qt::green);
    QEvent activate(QEvent::WindowActivate);
    QApplication::sendEvent(window.View().viewport(), &activate);
    EXPECT_TRUE(window.WaitFor([&] { return window.IsPainted({30, 30}, Qt::green); })) << "another program wrote it";

    for (int i = 0; i < 100; ++i)
        window.View().Run(ACTION_ZOOM_IN);
    EXPECT_EQ(window.View().Zoom().Percent(), 1000);
    const QImage large = window.View().viewport()->grab().toImage();
    EXPECT_EQ(large.pixelColor(large.rect().center()), QColor(Qt::green)) << "a tile, of which the view shows a part";
}

TEST(PreviewArt, DrawsNamesWithoutTheSetting)
{
    ArtWindow window(false);
    for (int i = 0; i < 5; ++i)
        window.Settle();
    EXPECT_FALSE(window.IsPainted({30, 30}, Qt::red));
}
