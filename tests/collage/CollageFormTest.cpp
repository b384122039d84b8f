#include "collage/CollageForm.h"

#include <gtest/gtest.h>

#include <limits>

TEST(AutomaticGridHeight, IsWholePixelsOfTheMoviesOwnShape)
{
    constexpr auto most = std::numeric_limits<std::int32_t>::max();
    VXMediaInfoItem movie;
    const std::array<int, 4> cases[] = {{1920, 1080, 320, 180},
                                        {640, 360, -301, -169},
                                        {0, 360, 301, 0},
                                        {2, most, most, 0}, // (2^31 - 1)^2 wraps to 1
                                        {1, 1 << 16, 1 << 15, 1 << 31}};
    for (const auto &[width, height, gridWidth, gridHeight] : cases) {
        movie.pixWidth = width;
        movie.pixHeight = height;
        EXPECT_EQ(automaticGridHeight(movie, gridWidth), gridHeight) << width << ' ' << height << ' ' << gridWidth;
    }
}
