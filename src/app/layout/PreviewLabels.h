// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetrics>
#include <QStaticText>

#include <memory>
#include <vector>

class CZulClass;
class Environment;

/// The labels of a preview's components, by the place of the component in the list of entries. What has been laid out
/// is kept, as long as the width still fits.
class PreviewLabels
{
public:
    /// The environment has the code page of the names.
    explicit PreviewLabels(const Environment &environment) : env(environment) {}

    /// Begins anew with a number of entries.
    void Reset(size_t count);
    /// The values of an entry have changed.
    void Forget(size_t place) { labels.at(place).reset(); }
    void SetFont(const QFont &labelFont);
    [[nodiscard]] const QFont &Font() const { return font; }
    [[nodiscard]] int Height() const { return metrics.height(); }

    struct Label
    {
        QStaticText shown;
        int width = 0; ///< of what is shown
    };
    /// The name of a component, or its type if it has none, with an ellipsis at the end if that is wider than `most`.
    /// Null when not even the ellipsis has room.
    [[nodiscard]] const Label *Fitting(size_t place, const CZulClass &component, qint64 most);
    /// The ellipsis alone.
    [[nodiscard]] const Label &Ellipsis() const { return ellipsis; }

    [[nodiscard]] QString TextOf(const CZulClass &component) const;

private:
    struct Kept : Label
    {
        QString text;
        int natural = 0;   ///< the width of the whole text
        int fittedTo = -1; ///< the width that `shown` was made for; at least `natural` for the whole text
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
