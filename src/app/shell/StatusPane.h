// SPDX-License-Identifier: MIT
#pragma once

#include "ResourceCounts.h"

#include <QWidget>

#include <optional>

class CResDoc;

/// The message pane of the status bar while there is no message: the path of the active project, and its number of
/// resources. If there is little room, there are fewer counts and the middle of the path is elided. The tool tip has
/// all of it.
class StatusPane : public QWidget
{
public:
    explicit StatusPane(QWidget *parent);

    /// Shows a document; null if no project is active. Fast enough to be called each time before the program waits for
    /// the user.
    void Show(const CResDoc *document);

    [[nodiscard]] const QString &Path() const { return path; }
    /// The counts for which there is room.
    [[nodiscard]] QString Summary() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    [[nodiscard]] bool HasRoom() const;
    void ShowToolTip();
    [[nodiscard]] int WidthBeside(const QString &text) const;

    QString path;
    std::optional<ResourceCounts> counts;
};
