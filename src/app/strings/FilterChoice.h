#pragma once

#include <QComboBox>

#include <vector>

/// A choice of the find bar. It gets as narrow as a few letters, while its list shows the names whole. The wheel
/// changes it only while it has the focus.
class FilterChoice : public QComboBox
{
public:
    struct Entry
    {
        QString text;
        int value;
        QString key; ///< by which the entry is known again among others; unique
    };

    /// `closedPrefix` is shown in front of what is chosen, where it has room, but for the first entry.
    FilterChoice(const QString &name, const QString &closedPrefix, QWidget *parent);

    /// What was chosen stays chosen where an entry still has its key; else the first one is. Signals nothing.
    void SetEntries(const std::vector<Entry> &entries);
    [[nodiscard]] int Value() const { return currentData().toInt(); }

    void showPopup() override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    /// The width of the box for so many letters.
    [[nodiscard]] QSize SizeFor(int letters) const;
    /// What is chosen, with the prefix.
    [[nodiscard]] QString WholeText() const;

    QString prefix;
};
