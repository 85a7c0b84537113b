// SPDX-License-Identifier: MIT
#include "BarPages.h"

#include <QApplication>
#include <QStackedLayout>
#include <QTabBar>
#include <QVBoxLayout>

BarPages::BarPages(QWidget *parent) : QWidget(parent), pages(new QStackedLayout), tabs(new QTabBar(this))
{
    tabs->setShape(QTabBar::RoundedSouth);
    tabs->setDocumentMode(true);
    tabs->setDrawBase(false);
    tabs->setExpanding(false);
    tabs->setAccessibleName(QStringLiteral("Pages"));
    tabs->hide();
    auto *const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addLayout(pages, 1);
    all->addWidget(tabs);
    connect(tabs, &QTabBar::currentChanged, this, [this](int tab) {
        if (tab < 0)
            return;
        pages->setCurrentIndex(tab);
        setFocusProxy(pages->currentWidget());
    });
}

void BarPages::Append(QWidget &page, const QString &title)
{
    pages->addWidget(&page);
    tabs->addTab(title);
    tabs->setVisible(tabs->count() > 1);
}

void BarPages::Remove(QWidget &page)
{
    const int place = pages->indexOf(&page);
    if (place < 0)
        return;
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    pages->removeWidget(&page);
    page.hide();
    tabs->removeTab(place);
    tabs->setVisible(tabs->count() > 1);
    pages->setCurrentIndex(tabs->currentIndex());
    if (hadFocus && Current())
        Current()->setFocus();
}

bool BarPages::Has(const QWidget &page) const
{
    return pages->indexOf(&page) >= 0;
}

void BarPages::Show(QWidget &page)
{
    tabs->setCurrentIndex(pages->indexOf(&page));
}

QWidget *BarPages::Current() const
{
    return pages->currentWidget();
}
