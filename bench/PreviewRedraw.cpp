// Redraws the editor's preview; run by bench/preview-redraw.

#include "collage/KTMovieObject.h"
#include "collage/editor/KTThumbnailPreview.h"

#include <QApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr double nanosecondsPerMillisecond = 1e6;

/// The median of as many redraws, milliseconds.
double redrawTime(KTThumbnailPreview &view)
{
    std::array<double, 51> times{};
    for (double &time : times) {
        QElapsedTimer timer;
        timer.start();
        view.imageWithSubviews();
        time = static_cast<double>(timer.nsecsElapsed()) / nanosecondsPerMillisecond;
    }
    std::ranges::nth_element(times, times.begin() + times.size() / 2);
    return times[times.size() / 2];
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const auto movie = std::make_shared<KTMovieObject>();
    CollageSettings settings;
    settings.rowNumber = settings.columeNumber = 20;
    movie->setSettings(settings);

    KTThumbnailPreview view;
    view.setMetadataText([](const KTMovieObject &) { return u"A line of facts about the movie\n"_s.repeated(8); });
    view.flushWithMovieObject(movie);
    for (const QSize size : {QSize(352, 224), QSize(900, 600), QSize(1920, 1080)}) {
        view.resize(size);
        std::printf("%d x %d: %.2f ms\n", size.width(), size.height(), redrawTime(view));
    }
    return 0;
}
