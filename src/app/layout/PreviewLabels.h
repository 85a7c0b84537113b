// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetrics>
#include <QStaticText>

#include <memory>
#include <vector>

class CZulClass;
class Environment;

/// The labels of a preview's components, by the index of the component in the list of entries. A label that has been
/// laid out is kept as long as its width still fits.
class PreviewLabels
{
public:
    /// The environment has the code page of the names.
    explicit PreviewLabels(const Environment &environment) : env(environment) {}

    /// Starts again with `count` entries.
    void Reset(size_t count);
    /// Called after the values of an entry have changed.
    void Forget(size_t place) { labels.at(place).reset(); }
    void SetFont(const QFont &labelFont);
    [[nodiscard]] const QFont &Font() const { return font; }
    [[nodiscard]] int Height() const { return metrics.height(); }

    struct Label
    {
        QStaticText shown;
        int width = 0; ///< of `shown`, in pixels
    };
    /// The name of a component, or its type if it has no name, shortened with an ellipsis if it is wider than `most`
    /// pixels. Null if not even the ellipsis fits.
    [[nodiscard]] const Label *Fitting(size_t place, const CZulClass &component, qint64 most);
    /// The ellipsis alone.
    [[nodiscard]] const Label &Ellipsis() const { return ellipsis; }

    [[nodiscard]] QString TextOf(const CZulClass &component) const;

private:
    struct Kept : Label
    {
        QString text;
        int natural = 0;   ///< the width of the whole text
        int fittedTo = -1; ///< the width that `shown` was made for; `natural` for the whole text
    };
    [[nodiscard]] int WidthOf(const QString &text) const;
    [[nodiscard]] Label Made(const QString &text) const;

    const Environment &env;
    std::vector<std::unique_ptr<Kept>> labels;
    size_t kept = 0;
    QFont font;
    QFontMetrics metrics{QFont()};
    Label ellipsis;
};
