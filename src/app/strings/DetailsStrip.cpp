// SPDX-License-Identifier: MIT
#include "DetailsStrip.h"

#include "DetailsText.h"
#include "ElidedLabel.h"
#include "ResFolder.h"
#include "StringTable.h"
#include "TextDirection.h"
#include "UiIcons.h"

#include <QGridLayout>
#include <QLabel>

namespace
{

constexpr int MARGIN = 4;
constexpr int ICON = 16;
const QString DIVIDER = QStringLiteral(" \u00B7 ");

/// The title of a column. A right-to-left title is isolated, so that the text around it keeps its order.
QString NameOf(const StringTable &table, int col)
{
    const QString title = table.ColumnTitle(col);
    return title.isRightToLeft() ? u'\u2068' + title + u'\u2069' : title;
}

Qt::LayoutDirection DirectionOf(const StringTable &table, int col)
{
    const CResFolder *const language = table.ColumnLanguage(col);
    return language ? DirectionOfLanguage(language->title) : Qt::LeftToRight;
}

} // namespace

DetailsStrip::DetailsStrip(QWidget *parent)
    : QWidget(parent), cells(new QGridLayout(this)), heading(new ElidedLabel(this)),
      besideHeading(new ElidedLabel(this)), text(new DetailsText(this)), beside(new DetailsText(this)),
      findingIcon(new QLabel(this)), findingLine(new ElidedLabel(this))
{
    setAccessibleName(QStringLiteral("Details"));
    cells->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    cells->setSpacing(MARGIN);
    cells->addWidget(heading, 0, 0);
    cells->addWidget(besideHeading, 0, 1);
    cells->addWidget(text, 1, 0);
    cells->addWidget(beside, 1, 1);
    auto *const findings = new QHBoxLayout;
    findings->setSpacing(MARGIN);
    findings->addWidget(findingIcon);
    findings->addWidget(findingLine, 1);
    cells->addLayout(findings, 2, 0, 1, 2);
    findingLine->setMinimumHeight(qMax(ICON, fontMetrics().height()));
    HideFindings();
    cells->setColumnStretch(0, 1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    ShowNothing();
}

void DetailsStrip::ShowCell(const StringTable &table, int row, int col, int position, int count)
{
    if (table.IsNewRow(row))
        return ShowNothing();
    constexpr int FIRST = StringTable::FIRST_LANGUAGE_COLUMN;
    const QString name = NameOf(table, col);
    heading->setText(table.CellText(row, StringTable::ID_COLUMN) + DIVIDER + name + DIVIDER +
                     QStringLiteral("%1 of %2").arg(position).arg(count));
    text->Show(table.CellText(row, col), DirectionOf(table, col), name);
    const bool hasBeside = col != FIRST && table.ColumnCount() > FIRST;
    besideHeading->setText(hasBeside ? NameOf(table, FIRST) : QString());
    if (hasBeside)
        beside->Show(table.CellText(row, FIRST), DirectionOf(table, FIRST), besideHeading->text());
    ShowBeside(hasBeside);
}

void DetailsStrip::ShowNothing()
{
    heading->setText(QStringLiteral("No string"));
    text->Show(QString(), Qt::LeftToRight, heading->text());
    ShowBeside(false);
}

void DetailsStrip::ShowFindings(UiIcon icon, const QStringList &findings)
{
    findingIcon->setPixmap(MakeIcon(icon).pixmap(QSize(ICON, ICON), devicePixelRatioF()));
    findingIcon->setVisible(!findings.isEmpty());
    findingLine->setText(findings.join(DIVIDER));
    findingLine->show();
}

void DetailsStrip::HideFindings()
{
    findingIcon->hide();
    findingLine->hide();
}

void DetailsStrip::ShowBeside(bool show)
{
    cells->setColumnStretch(1, show ? 1 : 0);
    besideHeading->setVisible(show);
    beside->setVisible(show);
}
