// SPDX-License-Identifier: MIT
#include "PicturePane.h"

#include "ConverterRun.h"
#include "Environment.h"
#include "ImageConversion.h"
#include "Paths.h"
#include "PictureCanvas.h"
#include "PictureDecoding.h"
#include "PictureLoader.h"
#include "PreviewTexts.h"
#include "ValueLine.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QStyle>
#include <QTimer>

namespace
{

constexpr int MARGIN = 4;
constexpr int LINE_EDGE = 2;
constexpr int VALUE_LETTERS = 24;
constexpr int LINES = 9;    // five values, the mark, two lines of note, and the check box
constexpr int REST_MS = 60; // the time that a file has the focus before its picture is converted

QLabel *MakeText(QWidget *parent)
{
    auto *const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setWordWrap(true);
    // Without this, a text that can be selected would begin on the wrong side of the window.
    if (parent->layoutDirection() == Qt::RightToLeft)
        label->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
    return label;
}

} // namespace

struct PicturePane::Parts
{
    Parts(Environment &env, PictureLoader &pictureLoader, PicturePane &pane);

    struct Line
    {
        QLabel *name;
        ValueLine *value;

        void Show(const QString &text) const;
    };

    void MakeLines(QGridLayout &lines);
    void MakeRemarks(QGridLayout &lines);
    [[nodiscard]] Line AddLine(QGridLayout &lines, const QString &name) const;

    void ShowFile();
    /// Loads the file and then its converted picture.
    void Load();
    /// The same for a file that is shown already. If the file hasn't changed, nothing visible changes.
    void LookAgain();
    void Stop();
    void TakeLoaded(const LoadedPicture &result);
    void Convert();
    void LoadConverted(const QByteArray &made);
    void TakeConverted(const LoadedPicture &result);
    void FailConverted(const QString &problem);
    void ShowTexts();

    PicturePane &owner;
    PictureLoader &loader;
    ConverterRun converter;
    QTimer rest;
    QTimer old; // until the previous file's picture is removed

    PreviewedFile file;
    quint64 turn = 0;      // of loading; results of other turns are too late
    bool isLoaded = false; // the following members are valid for the file
    LoadedPicture loaded;
    QImage plain; // the picture in the file, before conversion
    ConvertedPicture converted;

    PictureCanvas *canvas;
    Line id, path, picture, bytes, payload;
    QLabel *markIcon;
    QLabel *mark;
    QLabel *note;
    QCheckBox *thumbnails;
};

PicturePane::Parts::Parts(Environment &env, PictureLoader &pictureLoader, PicturePane &pane)
    : owner(pane), loader(pictureLoader), converter(env.ProgramDir() + QStringLiteral("qrk_resgenerator.exe")),
      canvas(new PictureCanvas(&pane)), thumbnails(new QCheckBox(QStringLiteral("Thumbnails in the list"), &pane))
{
    auto *const row = new QHBoxLayout(&pane);
    row->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    row->setSpacing(2 * MARGIN);
    row->addWidget(canvas);
    auto *const lines = new QGridLayout;
    lines->setHorizontalSpacing(2 * MARGIN);
    lines->setVerticalSpacing(0);
    lines->setColumnStretch(1, 1);
    row->addLayout(lines, 1);
    MakeLines(*lines);
    for (QTimer *timer : {&rest, &old})
        timer->setSingleShot(true);
    QObject::connect(&rest, &QTimer::timeout, &pane, [this] { Convert(); });
    QObject::connect(&old, &QTimer::timeout, &pane, [this] { canvas->Show({}); });
    QObject::connect(thumbnails, &QCheckBox::clicked, &pane, [this](bool isOn) {
        if (owner.thumbnailsTurned)
            owner.thumbnailsTurned(isOn);
    });
}

void PicturePane::Parts::MakeLines(QGridLayout &lines)
{
    id = AddLine(lines, QStringLiteral("ID"));
    path = AddLine(lines, QStringLiteral("Path"));
    picture = AddLine(lines, QStringLiteral("Picture"));
    bytes = AddLine(lines, QStringLiteral("File"));
    payload = AddLine(lines, QStringLiteral("Payload"));
    // The values have the same position for all files, and the picture leaves room for them.
    lines.setColumnMinimumWidth(0, payload.name->sizeHint().width());
    lines.setColumnMinimumWidth(1, owner.fontMetrics().averageCharWidth() * VALUE_LETTERS);
    MakeRemarks(lines);
}

void PicturePane::Parts::MakeRemarks(QGridLayout &lines)
{
    markIcon = new QLabel(&owner);
    const int side = owner.style()->pixelMetric(QStyle::PM_SmallIconSize);
    markIcon->setPixmap(owner.style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(side, side));
    mark = MakeText(&owner);
    mark->setAccessibleName(QStringLiteral("Warning"));
    note = MakeText(&owner);
    note->setAccessibleName(QStringLiteral("Note"));
    auto *const marked = new QHBoxLayout;
    marked->setSpacing(MARGIN);
    marked->addWidget(markIcon);
    marked->addWidget(mark, 1);
    const int row = lines.rowCount();
    lines.addLayout(marked, row, 0, 1, 2);
    lines.addWidget(note, row + 1, 0, 1, 2);
    lines.setRowStretch(row + 2, 1);
    lines.addWidget(thumbnails, row + 3, 0, 1, 2, Qt::AlignLeading);
}

PicturePane::Parts::Line PicturePane::Parts::AddLine(QGridLayout &lines, const QString &name) const
{
    const int row = lines.rowCount();
    const Line line{new QLabel(name, &owner), new ValueLine(&owner)};
    line.value->setAccessibleName(name);
    line.name->setBuddy(line.value);
    lines.addWidget(line.name, row, 0);
    lines.addWidget(line.value, row, 1);
    return line;
}

void PicturePane::Parts::Line::Show(const QString &text) const
{
    value->Show(text);
    name->setVisible(!text.isEmpty());
    value->setVisible(!text.isEmpty());
}

void PicturePane::Parts::ShowFile()
{
    Stop();
    isLoaded = false;
    loaded = {};
    converted = {};
    ShowTexts();
    old.start(REST_MS); // a new picture that comes soon replaces the old one without flicker
    if (owner.isVisible())
        Load();
}

void PicturePane::Parts::Load()
{
    if (file.hostPath.isEmpty())
        return;
    loader.Load(file.hostPath, file.isImage ? canvas->MostPixels() : QSize(),
                [pane = QPointer(&owner), wanted = ++turn](const LoadedPicture &result) {
                    if (pane && pane->parts->turn == wanted)
                        pane->parts->TakeLoaded(result);
                });
}

void PicturePane::Parts::Stop()
{
    ++turn;
    rest.stop();
    converter.Stop();
}

void PicturePane::Parts::LookAgain()
{
    if (isLoaded && !converted.isAwaited && owner.isVisible())
        Load();
}

void PicturePane::Parts::TakeLoaded(const LoadedPicture &result)
{
    if (isLoaded && result.bytes == loaded.bytes && result.picture == plain)
        return;
    old.stop();
    isLoaded = true;
    loaded = result;
    plain = result.picture;
    canvas->Show(loaded.picture);
    converted = {};
    converted.isTaken = NeedImageConvert(file.path);
    const bool isTooLarge = qint64(loaded.size.width()) * loaded.size.height() > MOST_PIXELS_DECODED;
    converted.isAwaited = file.isImage && loaded.bytes >= 0 && converted.isTaken && !isTooLarge;
    if (converted.isAwaited)
        rest.start(REST_MS);
    ShowTexts();
}

void PicturePane::Parts::Convert()
{
    const QByteArray kind = ToLowerSimple(FileExtension(file.path)).toUtf8();
    converter.Start(file.hostPath, kind, [this](const QByteArray &made, const QString &problem) {
        if (problem.isEmpty())
            LoadConverted(made);
        else
            FailConverted(problem);
    });
}

void PicturePane::Parts::LoadConverted(const QByteArray &made)
{
    loader.Load(made, canvas->MostPixels(), [pane = QPointer(&owner), wanted = ++turn](const LoadedPicture &result) {
        if (pane && pane->parts->turn == wanted)
            pane->parts->TakeConverted(result);
    });
}

void PicturePane::Parts::TakeConverted(const LoadedPicture &result)
{
    converted.isMade = result.bytes >= 0;
    converted.bytes = result.bytes;
    if (!result.problem.isEmpty())
        return FailConverted(QStringLiteral("wrote a file that can't be shown: ") + result.problem);
    converter.Stop();
    converted.isAwaited = false;
    loaded.size = result.size;
    canvas->Show(result.picture);
    ShowTexts();
}

void PicturePane::Parts::FailConverted(const QString &problem)
{
    converter.Stop();
    converted.isAwaited = false;
    converted.problem = problem;
    ShowTexts();
}

void PicturePane::Parts::ShowTexts()
{
    const bool hasFile = !file.hostPath.isEmpty();
    const PreviewTexts texts = hasFile ? TextsOf(file, loaded, converted) : PreviewTexts();
    id.Show(file.id);
    path.Show(file.path);
    picture.Show(texts.picture);
    bytes.Show(texts.file);
    payload.Show(texts.payload);
    mark->setText(texts.mark);
    mark->setVisible(!texts.mark.isEmpty());
    markIcon->setVisible(!texts.mark.isEmpty());
    note->setText(hasFile ? texts.note : QStringLiteral("No file"));
    note->setToolTip(texts.note); // the note may need more than its two lines
    canvas->setAccessibleDescription(texts.picture + u' ' + texts.note);
}

PicturePane::PicturePane(Environment &environment, PictureLoader &pictureLoader, QWidget *parent)
    : QWidget(parent), parts(std::make_unique<Parts>(environment, pictureLoader, *this))
{
    setAccessibleName(QStringLiteral("Preview"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    FitHeight();
    Clear();
}

PicturePane::~PicturePane() = default;

void PicturePane::FitHeight()
{
    const int line = fontMetrics().height() + LINE_EDGE;
    setFixedHeight(qMax(parts->canvas->maximumHeight(), LINES * line) + 2 * MARGIN);
}

void PicturePane::Show(const PreviewedFile &file)
{
    parts->file = file;
    parts->ShowFile();
}

void PicturePane::Clear()
{
    Show({});
}

void PicturePane::ShowThumbnailsState(bool isOn)
{
    parts->thumbnails->setChecked(isOn);
}

bool PicturePane::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate) // another program may have changed the file meanwhile
        parts->LookAgain();
    return QWidget::event(event);
}

void PicturePane::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    parts->ShowFile();
}

void PicturePane::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    parts->Stop();
}

void PicturePane::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitHeight();
}
