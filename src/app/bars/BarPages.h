// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QStackedLayout;
class QTabBar;

/// The content of a bar with several pages: one page at a time, and tabs below it to choose from. While only one page
/// is in use, there are no tabs.
class BarPages : public QWidget
{
public:
    explicit BarPages(QWidget *parent);

    /// Appends a page, which is in use from now on.
    void Append(QWidget &page, const QString &title);
    /// Takes a page out of use. The caller keeps it, hidden. If it has the focus, the page that is shown then gets it.
    void Remove(QWidget &page);
    [[nodiscard]] bool Has(const QWidget &page) const;

    /// Shows a page that is in use.
    void Show(QWidget &page);
    /// The page that is shown; null if none is in use.
    [[nodiscard]] QWidget *Current() const;

private:
    QStackedLayout *pages;
    QTabBar *tabs;
};
