// SPDX-License-Identifier: MIT
#include "PreviewLabels.h"

#include "CellLine.h"
#include "Environment.h"
#include "ZulType.h"

#include <QtMath>

#include <algorithm>

namespace
{

constexpr size_t MOST_KEPT = 20'000; // far more than a window can show, and about 20 MB
constexpr QChar ELLIPSIS(0x2026);

} // namespace

void PreviewLabels::Reset(size_t count)
{
    labels.clear();
    labels.resize(count);
    kept = 0;
}

void PreviewLabels::SetFont(const QFont &labelFont)
{
    font = labelFont;
    metrics = QFontMetrics(font);
    ellipsis = Made(ELLIPSIS);
    Reset(labels.size());
}

QString PreviewLabels::TextOf(const CZulClass &component) const
{
    const NarrowText &name = component.propName.isEmpty() ? component.typeName : component.propName;
    return CellLine(env.NarrowToWide(name), LONGEST_SHOWN);
}

int PreviewLabels::WidthOf(const QString &text) const
{
    return qCeil(QFontMetricsF(font).horizontalAdvance(text));
}

PreviewLabels::Label PreviewLabels::Made(const QString &text) const
{
    Label label{QStaticText(text), WidthOf(text)};
    label.shown.setTextFormat(Qt::PlainText);
    label.shown.setPerformanceHint(QStaticText::AggressiveCaching);
    label.shown.prepare({}, font);
    return label;
}

const PreviewLabels::Label *PreviewLabels::Fitting(size_t place, const CZulClass &component, qint64 most)
{
    if (most < ellipsis.width)
        return nullptr;
    if (!labels[place]) {
        if (kept == MOST_KEPT)
            Reset(labels.size());
        ++kept;
        labels[place] = std::make_unique<Kept>();
        labels[place]->text = TextOf(component);
        labels[place]->natural = WidthOf(labels[place]->text);
    }
    Kept &label = *labels[place];
    const int width = int(std::min<qint64>(most, label.natural));
    if (label.fittedTo != width) {
        label.fittedTo = width;
        static_cast<Label &>(label) =
            Made(width == label.natural ? label.text : metrics.elidedText(label.text, Qt::ElideRight, width));
    }
    return &label;
}
