// SPDX-License-Identifier: MIT
#include "PicturePane.h"
#include "Environment.h"
#include "PictureLoader.h"
#include "SamplePictures.h"
#include "TempFolder.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace
{

struct PaneTest : testing::Test
{
    PaneTest()
    {
        EXPECT_TRUE(QFile::link(QStringLiteral(CONVERTER), folder.Path("qrk_resgenerator.exe")));
        pane.resize(600, pane.height());
    }

    [[nodiscard]] PreviewedFile Previewed(const char *name) const
    {
        return {u"ID_A"_s,
                u".\\%1"_s.arg(QString::fromUtf8(name)),
                QFile::encodeName(folder.Path(name)),
                QByteArrayView(name).endsWith("png"),
                {240, 320},
                u"240x320"_s};
    }
    /// Returns the lines that the pane shows.
    [[nodiscard]] QStringList Said() const
    {
        QStringList said;
        for (const QLineEdit *line : pane.findChildren<QLineEdit *>()) {
            if (line->isVisibleTo(&pane))
                said << u"%1: %2"_s.arg(line->accessibleName(), line->text());
        }
        for (const QLabel *label : pane.findChildren<QLabel *>()) {
            if (label->isVisibleTo(&pane) && !label->text().isEmpty() && !label->accessibleName().isEmpty())
                said << label->text();
        }
        return said;
    }
    /// Shows a file and waits for these lines after its ID and path.
    void ExpectSaid(const char *name, const QStringList &wanted)
    {
        pane.Show(Previewed(name));
        WaitUntil([&] { return Said().sliced(2) == wanted; });
        EXPECT_EQ(Said().sliced(2), wanted) << Said().join(u'\n').toStdString();
    }

    TempFolder folder;
    Environment environment{folder.Path(), folder.Path()};
    PictureLoader loader;
    PicturePane pane{environment, loader};
};

} // namespace

TEST_F(PaneTest, ShowsTheKindAndSizeOfTheFile)
{
    folder.Put("icon.png", Png(17, 15, Qt::red));
    folder.Put("wide.png", Png(400, 30, Qt::red));
    folder.Put("torn.png", Png(400, 30, Qt::red).chopped(20));
    folder.Put("huge.png", PngThatClaims(30'000, 30'000));
    folder.Put("sound.wav", QByteArray(1234, 'x'));
    const auto file = [this](const char *name) { return u"File: %1 bytes"_s.arg(folder.Get(name).size()); };
    const auto payload = [this](const char *name) {
        return u"Payload: %1 bytes as it is"_s.arg((folder.Get(name).size() + 3) / 4 * 4);
    };
    pane.Show(Previewed("icon.png"));
    QCoreApplication::processEvents();
    EXPECT_EQ(Said(), (QStringList{u"ID: ID_A"_s, u"Path: .\\icon.png"_s, u"Picture: 240x320 screen"_s}))
        << "it is hidden";
    pane.show();
    ExpectSaid("icon.png", {u"Picture: 17 x 15 px, 240x320 screen"_s, file("icon.png"),
                            u"Payload: 564 bytes converted"_s, u"Shown as on the device."_s});
    ExpectSaid("wide.png",
               {u"Picture: 400 x 30 px, 240x320 screen"_s, file("wide.png"), u"Payload: 24,024 bytes converted"_s,
                u"Larger than the screen"_s, u"Shown as on the device."_s});
    ExpectSaid("huge.png",
               {u"Picture: 30,000 x 30,000 px, 240x320 screen"_s, file("huge.png"), payload("huge.png"),
                u"Larger than the screen"_s, u"Not shown: it has 30,000 x 30,000 pixels, more than 16 megapixels."_s});
    ExpectSaid("torn.png",
               {u"Picture: 400 x 30 px, 240x320 screen"_s, file("torn.png"), payload("torn.png"),
                u"Larger than the screen"_s,
                u"Not shown: it is damaged. The converter says: broken png: the file ends too soon, expected a "
                "complete picture."_s});
    ExpectSaid("sound.wav", {u"File: 1,234 bytes"_s});
    ExpectSaid("gone.png", {u"Picture: 240x320 screen"_s, u"File: not found"_s});
    folder.Put("gone.png", "");
    QEvent back(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&pane, &back);
    EXPECT_TRUE(WaitUntil([this] { return Said().contains(u"File: 0 bytes"_s); }));
    pane.Clear();
    EXPECT_EQ(Said(), QStringList{u"No file"_s});

    QList<bool> told;
    pane.thumbnailsTurned = [&](bool isOn) { told << isOn; };
    pane.ShowThumbnailsState(true);
    pane.findChild<QCheckBox *>()->click();
    EXPECT_EQ(told, QList<bool>{false}) << "only actions of the user are reported";
}
