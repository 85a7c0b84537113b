// SPDX-License-Identifier: MIT
#include "FirstSession.h"

#include <QTableView>

namespace
{

/// Numbers the pictures of the window.
class Frames
{
public:
    Frames(QWidget &shownWindow, Pictures &takenPictures) : window(shownWindow), pictures(takenPictures) {}
    void Take() { pictures.Take(u"%1"_s.arg(++count, 2, 10, QChar(u'0')).toLatin1(), window); }

private:
    QWidget &window;
    Pictures &pictures;
    int count = 0;
};

void FillGap(SampleWindow &window, Frames &frames)
{
    window.Row(u"Layouts"_s)->setExpanded(false);
    window.Go(window.Row(u"Strings"_s));
    window.FitColumns(135, {176, 0, 0, 104, 96, 0, 0, 116, 60});
    frames.Take();
    window.GoToCell(window.Grid(), 9, 7);
    window.Key(Qt::Key_Return);
    frames.Take();
    for (const QString &part : {u"पाले "_s, u"की "_s, u"चेतावनी"_s}) {
        SampleWindow::Type(part);
        frames.Take();
    }
    window.Key(Qt::Key_Return);
    frames.Take();
}

void MovePanel(SampleWindow &window, Frames &frames)
{
    window.Row(u"Layouts"_s)->setExpanded(true);
    window.Go(window.Row(u"ID_LAYOUT_START"_s));
    window.Frame().RunAction(ACTION_TOOLBOX);
    for (const QString &folder : {u"Files"_s, u"Images"_s})
        window.Row(folder)->setExpanded(false);
    window.FitColumns(180, {120, 230, 110});
    window.FitPanes(290, 220);
    window.SelectComponent(u"Panel: today"_s);
    window.Frame().RunAction(ACTION_FIT_VIEW);
    frames.Take();
    window.ClickProperty(u"pos"_s);
    frames.Take();
    window.Key(Qt::Key_F2);
    SampleWindow::Type(u"16"_s);
    frames.Take();
    window.Key(Qt::Key_Return);
    frames.Take();
}

} // namespace

void TakeFirstSession(SampleWindow &window, Pictures &pictures)
{
    CMainFrame &frame = window.Frame();
    Frames frames(frame, pictures);
    frame.resize(700, 490);
    window.PutOutputBelow(90);
    frame.RunAction(ACTION_OUTPUT);
    frames.Take();
    window.OpenSample();
    window.Go(window.Row(u"weatherclock"_s));
    frames.Take();
    FillGap(window, frames);
    MovePanel(window, frames);
    window.Go(window.Row(u"weatherclock"_s));
    frame.RunAction(ACTION_OUTPUT);
    frame.RunAction(ACTION_SAVE);
    frames.Take();
}
