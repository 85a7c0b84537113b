// SPDX-License-Identifier: MIT
#pragma once

#include "FindingTexts.h"

#include <QWidget>

#include <array>
#include <functional>

class QLabel;
class QLineEdit;
class QToolButton;

/// The line above the list of findings in which the user chooses what is listed: a button for each severity, with the
/// number of findings, and a field for a text.
class FindingsBar : public QWidget
{
public:
    explicit FindingsBar(QWidget *parent);

    [[nodiscard]] FindingFilter Filter() const;
    /// Shows everything again. This counts as one change.
    void Clear();
    void ShowCounts(const FindingCounts &shown);
    /// Shows whether the check still runs.
    void ShowRunning(bool isRunning);

    std::function<void()> filterChanged;
    std::function<void()> toList; ///< Down, Return or Escape in the field

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void FitTexts();
    void Changed();

    std::array<QToolButton *, 3> levels; // errors, warnings, notes
    QLineEdit *text;
    QLabel *running;
    FindingCounts counts;
    bool isClearing = false;
};
