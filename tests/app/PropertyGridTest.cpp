#include "PropertyWindow.h"

TEST(PropertyGridPictures, X)
{
    PropertyWindow window;
    window.Settle();
    const QString to = qEnvironmentVariable("GRID_PICTURES");
    const auto take = [&](const QString &name) { window.Settle(); window.view->grab().save(to + name + u".png"_s); };
    take(u"0-plain"_s);
    window.Click(u"tint"_s);
    take(u"1-tint"_s);
    window.Click(u"area"_s);
    take(u"2-area"_s);
    window.Click(u"side"_s);
    take(u"3-side"_s);
    window.Click(u"wait"_s);
    take(u"4-wait"_s);
    window.view->Run(ACTION_FIND_BAR);
    window.Type(u"to"_s);
    take(u"5-filter"_s);
}
