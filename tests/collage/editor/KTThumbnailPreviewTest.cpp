#include "collage/editor/KTThumbnailPreview.h"

#include "collage/KTMovieObject.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

constexpr QRgb ground = qRgb(10, 20, 30);

static std::shared_ptr<KTMovieObject> movieWithTiles(double width, std::int32_t columns = 3)
{
    auto movie = std::make_shared<KTMovieObject>();
    movie->setSettings({.backgroundColor = ground, .gridWidth = width, .gridHeight = 40.0, .columeNumber = columns});
    return movie;
}

TEST(KTThumbnailPreviewTest, ShowsTheLastMovieAndAsksForItsFactsOncePerTimeOnTheScreen)
{
    KTThumbnailPreview view;
    view.resize(352, 224);
    int asked = 0;
    int lines = 0;
    view.setMetadataText([&](const KTMovieObject &) {
        ++asked;
        return u"line\n"_s.repeated(lines);
    });
    EXPECT_EQ(view.imageWithSubviews().pixel(176, 112), 0U);
    const auto movie = movieWithTiles(60.0); // 228 x 124
    view.flushWithMovieObject(movie);
    EXPECT_EQ(view.imageWithSubviews().pixel(61, 112), 0U);
    EXPECT_EQ(view.imageWithSubviews().pixel(62, 112), ground);
    movie->setSettings(movieWithTiles(60.0, 2)->settings());
    view.flushWithMovieObject(movie);
    EXPECT_EQ(view.imageWithSubviews().pixel(62, 112), 0U);
    EXPECT_EQ(asked, 1);
    view.flushWithMovieObject(movieWithTiles(100.0));
    const QImage without = view.imageWithSubviews();
    EXPECT_EQ(without.pixel(3, 112), ground);
    EXPECT_EQ(asked, 2);
    lines = 3; // chosen in the preferences while the view is away
    view.show();
    EXPECT_NE(view.imageWithSubviews(), without);
}
