#include "app/list/ListOrder.h"

#include "app/list/MovieFilter.h"
#include "collage/KTMovieObject.h"
#include "platform/files/PathText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using ListOrder::Key;

static MovieList::Movie movieOf(const char *path, double duration, QSize size, double bitRate)
{
    auto movie = std::make_shared<KTMovieObject>();
    movie->filePath = PathText::fromBytes(path);
    movie->duration = duration;
    movie->pixWidth = size.width();
    movie->pixHeight = size.height();
    movie->videoBitrate = bitRate;
    return movie;
}

TEST(ListOrder, IsNaturalAndStableInBothDirections)
{
    const MovieList::Movies movies{
        movieOf("/a/clip 10.mp4", 60, {65'536, 65'536}, 0),    // 0
        movieOf("/b/Clip 9.mp4", 7, {320, 240}, 900'000),      // 1
        movieOf("/a/\xC3\xA9toile.mp4", 60, {240, 320}, 100),  // 2
        movieOf("/b/zebra.mp4", 0, {640, 480}, 2e9),           // 3
        movieOf("/b/clip\xff.mp4", 60, {320, 240}, 1'000'000), // 4: no text
    };
    const std::tuple<Key, Qt::SortOrder, std::vector<int>> sortings[] = {
        {Key::Name, Qt::AscendingOrder, {1, 0, 4, 2, 3}},     {Key::Name, Qt::DescendingOrder, {3, 2, 4, 0, 1}},
        {Key::Folder, Qt::AscendingOrder, {0, 2, 1, 3, 4}},   {Key::Folder, Qt::DescendingOrder, {1, 3, 4, 0, 2}},
        {Key::Duration, Qt::AscendingOrder, {3, 1, 0, 2, 4}}, {Key::Resolution, Qt::DescendingOrder, {0, 3, 1, 2, 4}},
        {Key::BitRate, Qt::AscendingOrder, {0, 2, 1, 4, 3}},
    };
    for (const QLocale &place : {QLocale(QLocale::C), QLocale(QLocale::French)}) { // with LC_ALL=C, too
        for (const auto &[key, order, expected] : sortings) {
            std::vector<int> found;
            for (const auto &movie : ListOrder::sorted(movies, key, order, ListOrder::collator(place))) {
                found.push_back(static_cast<int>(std::ranges::find(movies, movie) - movies.begin()));
            }
            EXPECT_EQ(found, expected) << static_cast<int>(key) << " " << place.name().toStdString();
        }
    }
}

TEST(MovieFilter, FindsAllWordsInTheNameOrThePath)
{
    const QString path =
        PathText::fromBytes("/films/E\xCC\x81te\xCC\x81 2019/\xff Strasse.mp4"); // accents of their own
    for (const auto &[text, isFound] : {std::pair{u"  "_s, true},
                                        {u"STRASSE été"_s, true},
                                        {u"films/"_s, true},
                                        {u"2019 2020"_s, false},
                                        {u"strasse  .MP4"_s, true}}) {
        EXPECT_EQ(MovieFilter(text).accepts(path), isFound) << text.toStdString();
    }
}
