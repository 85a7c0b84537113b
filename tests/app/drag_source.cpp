// SPDX-License-Identifier: MIT
// Shows another program's window, from which files are dragged: drag_source X Y FILE... It is at X, Y of the screen
// and 40 pixels wide and high. A mouse press in it starts to drag the files.
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace
{

class DragSource : public QWidget
{
public:
    explicit DragSource(const QStringList &paths) : QWidget(nullptr, Qt::X11BypassWindowManagerHint), files(paths) {}

protected:
    void mousePressEvent(QMouseEvent *) override
    {
        QList<QUrl> urls;
        for (const QString &file : files)
            urls.append(QUrl::fromLocalFile(file));
        auto *const data = new QMimeData;
        data->setUrls(urls);
        auto *const drag = new QDrag(this);
        drag->setMimeData(data);
        drag->exec(Qt::CopyAction);
    }

private:
    const QStringList files;
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    DragSource source(arguments.sliced(3));
    source.setWindowTitle(QStringLiteral("Drag Source"));
    source.setGeometry(arguments[1].toInt(), arguments[2].toInt(), 40, 40);
    source.show();
    return QApplication::exec();
}
