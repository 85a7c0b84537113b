// SPDX-License-Identifier: MIT
// Takes pictures of the window with the sample:
//   app_pictures views FOLDER [REFERENCES]   those of docs/window.md, and compares them with those in REFERENCES
//   app_pictures session FOLDER              the frames of a first session
//   app_pictures icons FOLDER                the application's icon in the usual sizes
// Add "dark" or "rtl" for another look. Exit status 1: a picture differs; 77: a font is missing, so nothing is taken.
#include "FirstSession.h"
#include "ManualViews.h"
#include "ProgramStyle.h"
#include "UiIcons.h"

#include <QStyleFactory>

#include <cstdio>

namespace
{

QPalette DarkPalette()
{
    const QColor window(0x2B, 0x2B, 0x2B), base(0x1E, 0x1E, 0x1E), text(0xE6, 0xE6, 0xE6), dim(0x80, 0x80, 0x80);
    QPalette dark(text, window, window.lighter(150), window.darker(150), window, text, Qt::white, base, window);
    dark.setColor(QPalette::Highlight, QColor(0x2F, 0x65, 0xA8));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, dim);
    return dark;
}

/// Only these fonts are used, whatever else is installed. Returns false if one is missing.
bool ChooseFonts(const TempFolder &folder)
{
    folder.MakeFolder("fonts");
    for (const char *file : {"dejavu/DejaVuSans.ttf", "dejavu/DejaVuSans-Bold.ttf", "wqy/wqy-microhei.ttc",
                             "lohit-devanagari/Lohit-Devanagari.ttf"}) {
        const QFileInfo font(u"/usr/share/fonts/truetype/"_s + QLatin1String(file));
        if (!font.exists()) {
            std::printf("Skipped: there is no font %s.\n", qPrintable(font.filePath()));
            return false;
        }
        QFile::link(font.filePath(), folder.Path("fonts/") + font.fileName());
    }
    folder.Put("fonts.conf", "<fontconfig><dir>" + folder.Path("fonts").toUtf8() + "</dir><cachedir>" +
                                 folder.Path("cache").toUtf8() +
                                 "</cachedir><match><edit name=\"family\" mode=\"append_last\">"
                                 "<string>DejaVu Sans</string></edit></match><match target=\"font\">"
                                 "<edit name=\"antialias\"><bool>true</bool></edit>"
                                 "<edit name=\"hintstyle\"><const>hintslight</const></edit>"
                                 "<edit name=\"rgba\"><const>none</const></edit></match></fontconfig>");
    qputenv("FONTCONFIG_FILE", folder.Path("fonts.conf").toUtf8());
    return true;
}

/// Nothing of the user's desktop changes a picture.
void ChooseDesktop(const TempFolder &folder)
{
    for (const char *name : {"QT_SCALE_FACTOR", "QT_FONT_DPI", "QT_STYLE_OVERRIDE", "QT_AUTO_SCREEN_SCALE_FACTOR"})
        qunsetenv(name);
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("XDG_DATA_DIRS", "/usr/share"); // which has the types of files
    qputenv("XDG_DATA_HOME", folder.Path("none").toUtf8());
    folder.Put("screen.json", R"({"screens":[{"name":"s","x":0,"y":0,"width":1600,"height":1000,)"
                              R"("logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})");
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + folder.Path("screen.json").toUtf8());
}

void SaveIcons(const QString &folder)
{
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512})
        MakeIcon(UiIcon::Application).pixmap(size, size).save(folder + u"/morvanite-%1.png"_s.arg(size));
}

} // namespace

int main(int argc, char **argv)
{
    constexpr int SKIPPED = 77;
    const TempFolder desktop;
    if (!ChooseFonts(desktop))
        return SKIPPED;
    ChooseDesktop(desktop);
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QStringList arguments = QApplication::arguments().sliced(1);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setStyle(new ProgramStyle);
    QApplication::setCursorFlashTime(0);
    if (arguments.removeAll(u"dark"_s) > 0)
        QApplication::setPalette(DarkPalette());
    if (arguments.removeAll(u"rtl"_s) > 0)
        QApplication::setLayoutDirection(Qt::RightToLeft);
    if (arguments.size() < 2)
        return 2;
    const QString what = arguments[0], folder = QDir(arguments[1]).absolutePath();
    QDir().mkpath(folder);
    if (what == u"icons") {
        SaveIcons(folder);
        return 0;
    }
    SampleWindow window;
    if (what == u"session") {
        Pictures frames(folder, {});
        TakeFirstSession(window, frames);
        return 0;
    }
    Pictures pictures(folder, arguments.size() > 2 ? QDir(arguments[2]).absolutePath() : QString());
    TakeManualViews(window, pictures);
    const int missing = pictures.Missing();
    if (pictures.Differing() + missing == 0)
        return 0;
    std::printf("Look at the pictures in %s. If the window is meant to look like this, run docs/pictures/window.sh.\n",
                qPrintable(folder));
    return 1;
}
