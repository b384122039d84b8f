#include "Shared/TimeFormat.h"

#include <gtest/gtest.h>

#include <limits>

using namespace GlobalFun;

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

TEST(TimeFormat, ReadsSecondsByTheirPlaceFromTheLeft)
{
    const std::pair<const char *, double> cases[] = {
        {"01:02:03", 3723},      {"1:2:3:4", 3723}, {"90", 324000}, {"", 0},
        {" 1 : 2 ", 3720},       {"0:0:1.5s", 1.5}, {"x:1:y", 60},  {"-1:0:0", -3600},
        {"inf:nan:0x10", 0},     {"0:0:1,5", 1},    {"+-1", 0},     {"0:0:1e999", infinite},
        {"0:0:\xe2\x91\xa0", 0},
    };
    for (const auto &[text, seconds] : cases) {
        EXPECT_EQ(getSecondsByTimeString(QString::fromUtf8(text)), seconds) << text;
    }
}

TEST(TimeFormat, EstimatesTheTimeLeft)
{
    const std::pair<double, const char *> cases[] = {
        {-3, "-3 second remaining"},
        {1.0, "1 second remaining"},
        {59.6, "60 seconds remaining"},
        {121.5, "2 minites 1 second remaining"},
        {3599.9, "59 minites 59 seconds remaining"},
        {3661, "1 hour 1 minite remaining"},
        {noNumber, "0 hour 0 minite remaining"},
        {infinite, "596523 hours 35791394 minites remaining"},
    };
    for (const auto &[seconds, text] : cases) {
        EXPECT_EQ(getEstimateStrBySecond(seconds).toStdString(), text) << seconds;
    }
}
