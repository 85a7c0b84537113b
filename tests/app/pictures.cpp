// Takes pictures of the window's main states: app_pictures FOLDER [dark]. QT_SCALE_FACTOR=2 takes them for a sharp
// screen.
// With "icons" in the place of "dark" it makes the application's icon in the usual sizes instead.
#include "TestWindow.h"

#include <QListWidget>
#include <QMenu>
#include <QStyleFactory>

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

void Take(TestWindow &window, const QString &folder, const char *name)
{
    window.Settle();
    window.Frame().grab().save(folder + u'/' + QLatin1String(name) + u".png"_s);
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    if (argc < 2)
        return 2;
    const QString folder = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    if (argc > 2 && QByteArrayView(argv[2]) == "icons") {
        for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512})
            MakeIcon(UiIcon::Application).pixmap(size, size).save(folder + u"/morvanite-%1.png"_s.arg(size));
        return 0;
    }
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    if (argc > 2)
        QApplication::setPalette(DarkPalette());

    TestWindow window;
    const QByteArray resolutions = "<RESOLUTION width=\"320\" height=\"240\" class=\"image\"/>";
    window.MakeProject("weatherclock", "<APP>" + resolutions + "<NEWS/></APP>");
    window.MakeProject("天气时钟", "<APP>" + resolutions + "</APP>");
    window.MakeProject("ساعة الطقس", "<APP/>");
    window.Start();
    window.Frame().resize(900, 560);
    Take(window, folder, "empty");
    (void)window.Frame().OpenProject(window.Project("weatherclock"));
    Take(window, folder, "project");
    window.Tree().setCurrentItem(window.Row(u"Images"_s));
    window.Document().SetModifiedFlag(true);
    Take(window, folder, "images");
    QTimer::singleShot(100, [&] {
        if (QWidget *menu = QApplication::activePopupWidget()) {
            menu->grab().save(folder + u"/menu.png"_s);
            menu->close();
        }
    });
    window.Tree().OpenContextMenu(window.Row(u"Images"_s), window.Frame().mapToGlobal(QPoint(60, 120)));
    window.Document().SetModifiedFlag(false);
    (void)window.Frame().OpenProject(window.Project("天气时钟"));
    Take(window, folder, "chinese");
    (void)window.Frame().OpenProject(window.Project("ساعة الطقس"));
    Take(window, folder, "arabic");
    window.Frame().RunCommand(CMD_TILE);
    Take(window, folder, "tiled");
    window.Frame().RunCommand(CMD_CASCADE);
    Take(window, folder, "cascaded");
    {
        const CMainFrame::Busy busy(window.Frame(), COMMAND_PACK);
        Take(window, folder, "busy");
    }
    return 0;
}
