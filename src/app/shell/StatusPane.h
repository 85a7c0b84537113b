#pragma once

#include "ResourceCounts.h"

#include <QWidget>

#include <optional>

class CResDoc;

/// The message pane of the status bar while there is no message: the path of the active project, and how many resources
/// it has. Where there is little room the counts are fewer and the path loses its middle; a tool tip has all of them.
class StatusPane : public QWidget
{
public:
    explicit StatusPane(QWidget *parent);

    /// Null when no project is active. Cheap enough for each time before the program waits for the user.
    void Show(const CResDoc *document);

    [[nodiscard]] const QString &Path() const { return path; }
    /// What there is room for of the counts.
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
