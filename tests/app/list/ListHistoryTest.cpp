#include "app/list/ListHistory.h"

#include "app/list/ListOrder.h"
#include "collage/KTMovieObject.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct ListHistoryTest : testing::Test {
    /// Adds a movie as the loading thread does.
    void load(const QString &name, int index)
    {
        auto movie = std::make_shared<KTMovieObject>();
        movie->filePath = u"/films/"_s + name;
        list.insert(index, movie);
    }
    void loadAll(const QString &names)
    {
        for (const QChar name : names) {
            load(name, list.count());
        }
    }
    MovieList::Movies movies(const QString &names) const
    {
        MovieList::Movies found;
        for (const auto &movie : list.snapshot()) {
            if (names.contains(movie->filePath.back())) {
                found.push_back(movie);
            }
        }
        return found;
    }
    std::string order() const
    {
        std::string names;
        for (const auto &movie : list.snapshot()) {
            names += movie->filePath.back().toLatin1();
        }
        return names;
    }
    std::string undone()
    {
        history.stack().undo();
        return order();
    }
    std::string redone()
    {
        history.stack().redo();
        return order();
    }

    MovieList list;
    ListHistory history{list};
};

TEST_F(ListHistoryTest, RecordsComeBackToTheirPlacesAndWhatWasLoadedSinceStays)
{
    loadAll(u"abcdef"_s);
    const auto second = list.movieAt(1);
    second->setSettings({.rowNumber = 7});
    history.remove(movies(u"bcf"_s));
    EXPECT_EQ(order(), "ade");
    load(u"x"_s, 0);
    load(u"y"_s, 2);
    history.sort(movies(u"xyade"_s), u"nothing to do"_s);
    history.sort(ListOrder::sorted(list.snapshot(), ListOrder::Key::Name, Qt::DescendingOrder), u"sort"_s);
    EXPECT_EQ(order(), "yxeda");
    history.clear();
    load(u"z"_s, 0);
    EXPECT_EQ(undone(), "zyxeda");
    EXPECT_EQ(undone(), "zxayde");
    EXPECT_EQ(undone(), "zxaybcdef");
    EXPECT_EQ(list.movieAt(4), second);
    EXPECT_EQ(second->settings().rowNumber, 7);
    EXPECT_FALSE(history.stack().canUndo());
    EXPECT_EQ(redone(), "zxayde");
    EXPECT_EQ(redone(), "zyxeda");
    EXPECT_EQ(redone(), "z");
}

TEST_F(ListHistoryTest, MovingOnIsTheSameStep)
{
    loadAll(u"abcdef"_s);
    const auto some = movies(u"be"_s);
    history.move(some, 0);
    EXPECT_EQ(order(), "beacdf");
    history.move(some, 4);
    EXPECT_EQ(order(), "acbedf");
    history.move(some, 99);
    EXPECT_EQ(order(), "acdfbe");
    EXPECT_EQ(undone(), "abcdef");
    EXPECT_EQ(redone(), "acdfbe");
    history.move(movies(u"f"_s), 0);
    load(u"x"_s, 1);
    history.move(movies(u"f"_s), 3); // not the same step: there was no x in the one before
    EXPECT_EQ(order(), "xafcdbe");
    EXPECT_EQ(undone(), "fxacdbe");
    EXPECT_EQ(undone(), "acdfxbe");
    EXPECT_EQ(undone(), "abcdefx") << "behind what it stood behind";
}

TEST_F(ListHistoryTest, WhatTheExportAndTheEditorDoIsAStepOfTheirs)
{
    loadAll(u"abc"_s);
    const MovieList::Movies all = list.snapshot();
    history.noteExported(all); // and left the list alone
    EXPECT_EQ(history.stack().count(), 0);
    list.removeAll();
    history.noteExported(all);
    EXPECT_EQ(undone(), "abc");

    const auto visit = [&](const std::vector<int> &changed, bool drawsAll) {
        const CollageStep::Looks before = CollageStep::of(all);
        const QImage picture(8, 8, QImage::Format_RGB32);
        for (const int index : changed) {
            all[std::size_t(index)]->setSettings({.rowNumber = 5});
        }
        for (std::size_t index = 0; index < (drawsAll ? all.size() : 1); ++index) {
            all[index]->setImgPreview(picture);
        }
        history.noteEdited(all.front(), before);
        return history.stack().undoText();
    };
    const auto rows = [&] {
        std::vector<int> numbers;
        for (const auto &movie : all) {
            numbers.push_back(movie->settings().rowNumber);
        }
        return numbers;
    };
    EXPECT_EQ(visit({}, false), QString()) << "the editor was closed again";
    EXPECT_EQ(visit({0}, false), u"undo_change_collage");
    EXPECT_EQ(visit({0, 1, 2}, true), u"undo_apply_to_all");
    history.stack().undo();
    EXPECT_EQ(rows(), (std::vector{5, 2, 2}));
    EXPECT_TRUE(all.back()->imgPreview().isNull());
    history.stack().undo();
    EXPECT_EQ(rows(), (std::vector{2, 2, 2}));
    history.stack().redo();
    history.stack().redo();
    EXPECT_EQ(rows(), (std::vector{5, 5, 5}));
    EXPECT_FALSE(all.back()->imgPreview().isNull());
}

TEST_F(ListHistoryTest, RecordsOfForgottenStepsAreFreed)
{
    load(u"a"_s, 0);
    const std::weak_ptr<KTMovieObject> first = list.movieAt(0);
    for (int step = 0; step < ListHistory::limit; ++step) {
        history.clear();
        load(u"b"_s, 0);
    }
    EXPECT_FALSE(first.expired());
    history.clear();
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(history.stack().count(), ListHistory::limit);
}
