#include "collage/editor/EditorTexts.h"

#include "Shared/TimeFormat.h"
#include "render/CollageLayout.h"

#include <QCoreApplication>
#include <QLocale>

#include <cmath>

QString EditorTexts::collageSize(const CollageLayout &layout)
{
    const QLocale locale;
    const QSizeF size = layout.canvasSize();
    const auto whole = [&locale](double length) { return locale.toString(std::ceil(length), 'f', 0); };
    if (!layout.isPossible()) {
        //% "A collage of %1 × %2 pixels cannot be made"
        return qtTrId("editor_size_impossible").arg(whole(size.width()), whole(size.height()));
    }
    constexpr double million = 1e6;
    const double megapixels = size.width() * size.height() / million;
    //% "%1 × %2 pixels, %3 megapixels"
    return qtTrId("editor_size_text")
        .arg(whole(size.width()), whole(size.height()), locale.toString(megapixels, 'f', megapixels < 10.0 ? 2 : 0));
}

QString EditorTexts::rangeOfDone(double start, double end)
{
    //% "Done will store %1 to %2"
    return qtTrId("editor_range_of_done")
        .arg(GlobalFun::getTimeStringBySecond(start), GlobalFun::getTimeStringBySecond(end));
}

QString EditorTexts::placeInList(int number, int count)
{
    //% "Movie %1 of %2"
    return qtTrId("editor_place").arg(number).arg(count);
}

QString EditorTexts::waitsForDone()
{
    //% "“Apply to all” and “Set as default” act on Done, not on Previous and Next"
    return qtTrId("editor_waits_for_done");
}
