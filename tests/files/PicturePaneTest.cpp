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

    [[nodiscard]] PreviewedFile Previewed(const char *name, bool isImage = true) const
    {
        return {u"ID_A"_s,
                u".\\%1"_s.arg(QString::fromUtf8(name)),
                QFile::encodeName(folder.Path(name)),
                isImage,
                {240, 320},
                u"240x320"_s};
    }
    /// What the pane says, a line each.
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
    void ExpectSaid(const QStringList &wanted)
    {
        WaitUntil([&] { return Said() == wanted; });
        EXPECT_EQ(Said(), wanted) << Said().join(u'\n').toStdString();
    }

    TempFolder folder;
    Environment environment{folder.Path(), folder.Path()};
    PictureLoader loader;
    PicturePane pane{environment, loader};
};

} // namespace

TEST_F(PaneTest, SaysWhatTheFileIsAndWhatItTakes)
{
    folder.Put("icon.png", Png(17, 15, Qt::red));
    folder.Put("wide.png", Png(400, 30, Qt::red));
    folder.Put("torn.png", Png(400, 30, Qt::red).first(60));
    folder.Put("huge.png", PngThatClaims(30'000, 30'000));
    folder.Put("sound.wav", QByteArray(1234, 'x'));
    const QString iconBytes = QString::number(folder.Get("icon.png").size());
    const auto filled = [this](const char *name) { return QString::number((folder.Get(name).size() + 3) / 4 * 4); };
    pane.Show(Previewed("icon.png"));
    QCoreApplication::processEvents();
    ExpectSaid({u"ID: ID_A"_s, u"Path: .\\icon.png"_s, u"Picture: 240x320 screen"_s}); // it is hidden
    pane.show();
    ExpectSaid({u"ID: ID_A"_s, u"Path: .\\icon.png"_s, u"Picture: 17 x 15 pixels, 240x320 screen"_s,
                u"File: %1 bytes"_s.arg(iconBytes),
                u"Payload: 564 bytes converted, %1 bytes as it is"_s.arg(filled("icon.png")),
                u"Shown as on the device."_s});
    pane.Show(Previewed("wide.png"));
    ExpectSaid({u"ID: ID_A"_s, u"Path: .\\wide.png"_s, u"Picture: 400 x 30 pixels, 240x320 screen"_s,
                u"File: %1 bytes"_s.arg(folder.Get("wide.png").size()),
                u"Payload: 24,024 bytes converted, %1 bytes as it is"_s.arg(filled("wide.png")),
                u"Larger than the screen"_s, u"Shown as on the device."_s});
    pane.Show(Previewed("huge.png"));
    ExpectSaid({u"ID: ID_A"_s, u"Path: .\\huge.png"_s, u"Picture: 30,000 x 30,000 pixels, 240x320 screen"_s,
                u"File: %1 bytes"_s.arg(folder.Get("huge.png").size()),
                u"Payload: %1 bytes as it is"_s.arg(filled("huge.png")), u"Larger than the screen"_s,
                u"Not shown: it has 30,000 x 30,000 pixels, more than 16 megapixels."_s});
    pane.Show(Previewed("sound.wav", false));
    ExpectSaid({u"ID: ID_A"_s, u"Path: .\\sound.wav"_s, u"File: 1,234 bytes"_s});
    pane.Show(Previewed("gone.png"));
    ExpectSaid({u"ID: ID_A"_s, u"Path: .\\gone.png"_s, u"Picture: 240x320 screen"_s, u"File: not found"_s});
    pane.Show(Previewed("torn.png"));
    WaitUntil([this] { return Said().last().contains(u"The converter says"); });
    EXPECT_TRUE(Said().last().startsWith(u"Not shown: it is damaged. The converter says: "))
        << Said().last().toStdString();
    pane.Clear();
    ExpectSaid({u"No file"_s});
}

TEST_F(PaneTest, TheCheckBoxTellsTheUserAlone)
{
    QList<bool> told;
    pane.thumbnailsTurned = [&](bool isOn) { told << isOn; };
    pane.ShowThumbnailsState(true);
    auto *const box = pane.findChild<QCheckBox *>();
    EXPECT_TRUE(box->isChecked());
    box->click();
    EXPECT_EQ(told, QList<bool>{false});
}
