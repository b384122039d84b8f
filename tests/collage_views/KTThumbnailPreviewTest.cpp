#include "collage/KTThumbnailPreview.h"

#include "collage/KTMovieObject.h"

#include <gtest/gtest.h>

namespace {

constexpr QRgb ground = qRgb(10, 20, 30);

class KTThumbnailPreviewTest : public testing::Test {
protected:
    KTThumbnailPreviewTest()
    {
        view.resize(352, 224);
        view.setMetadataText([this](const KTMovieObject &) {
            ++asked;
            return QStringLiteral("line\n").repeated(lines);
        });
    }

    static std::shared_ptr<KTMovieObject> movieWithTiles(double width)
    {
        auto movie = std::make_shared<KTMovieObject>();
        CollageSettings settings;
        settings.gridWidth = width;
        settings.gridHeight = 40.0;
        settings.backgroundColor = ground;
        movie->setSettings(settings);
        return movie;
    }

    KTThumbnailPreview view;
    int asked = 0;
    int lines = 0;
};

TEST_F(KTThumbnailPreviewTest, ShowsTheMovieOfTheLastFlushWithItsPresentSettings)
{
    EXPECT_EQ(view.imageWithSubviews().pixel(176, 112), 0U);
    const auto movie = movieWithTiles(60.0); // 228 x 124
    view.flushWithMovieObject(movie);
    const QImage image = view.imageWithSubviews();
    EXPECT_EQ(image.size(), view.size());
    EXPECT_EQ(image.pixel(61, 112), 0U);
    EXPECT_EQ(image.pixel(62, 112), ground);

    CollageSettings settings = movie->settings();
    settings.columeNumber = 2;
    movie->setSettings(settings);
    EXPECT_EQ(view.imageWithSubviews().pixel(62, 112), 0U);

    view.flushWithMovieObject(movieWithTiles(100.0));
    EXPECT_EQ(view.imageWithSubviews().pixel(3, 112), ground);
}

TEST_F(KTThumbnailPreviewTest, AsksForTheFactsOncePerMovieAndTimeOnTheScreen)
{
    const auto movie = movieWithTiles(60.0);
    for (int repaint = 0; repaint < 3; ++repaint) {
        view.flushWithMovieObject(movie);
        view.imageWithSubviews();
    }
    EXPECT_EQ(asked, 1);
    view.flushWithMovieObject(movieWithTiles(60.0));
    const QImage without = view.imageWithSubviews();
    EXPECT_EQ(asked, 2);

    lines = 3; // chosen in the preferences while the view is away
    view.show();
    EXPECT_NE(view.imageWithSubviews(), without);
}

} // namespace
