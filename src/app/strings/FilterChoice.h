// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

#include <vector>

/// A choice of the find bar. It can be as narrow as a few letters, but its list shows the full names. The wheel changes
/// it only while it has the focus.
class FilterChoice : public QComboBox
{
public:
    struct Entry
    {
        QString text;
        int value;
        QString key; ///< identifies the entry when the entries are replaced; unique
    };

    /// `closedPrefix` is shown in front of the chosen entry if there is room, except for the first entry.
    FilterChoice(const QString &name, const QString &closedPrefix, QWidget *parent);

    /// Replaces the entries. The chosen entry remains chosen if an entry with its key still exists; otherwise the first
    /// entry is chosen. Emits no signal.
    void SetEntries(const std::vector<Entry> &entries);
    [[nodiscard]] int Value() const { return currentData().toInt(); }

    void showPopup() override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    /// The size of the box with room for that many letters.
    [[nodiscard]] QSize SizeFor(int letters) const;
    /// The chosen entry, with the prefix.
    [[nodiscard]] QString WholeText() const;

    QString prefix;
};
