#include "app/table/MovieTableModel.h"

#include "collage/KTMovieObject.h"
#include "platform/files/PathText.h"

#include <gtest/gtest.h>

#include <thread>

using namespace Qt::StringLiterals;

static std::shared_ptr<KTMovieObject> movieAt(const QString &path)
{
    auto movie = std::make_shared<KTMovieObject>();
    movie->filePath = path;
    return movie;
}

TEST(MovieList, ThreadsMayShareIt)
{
    MovieList list;
    MovieTableModel model(list);
    std::jthread loading([&list] {
        for (int index = 0; index < 500; ++index) {
            list.insert(0, movieAt(QString::number(index)));
        }
    });
    while (list.count() < 500) {
        model.reloadData();
        for (int row = 0; row < model.rowCount(); ++row) {
            ASSERT_TRUE(model.index(row, MovieTableModel::Title).data().isValid());
        }
    }
}

TEST(MovieTableModel, ShowsTheListOfTheLastReloadWhateverTheNames)
{
    MovieList list;
    list.insert(0, movieAt(PathText::fromBytes("/f/<b>\n\xff&.mkv")));
    MovieTableModel model(list);
    EXPECT_EQ(model.rowCount(), 0);
    model.reloadData();
    list.movieAt(0)->setSettings({.rowNumber = 9}); // in the editor, which may yet be cancelled
    list.removeAll();
    EXPECT_EQ(model.index(0, MovieTableModel::Grids).data().toString(), u"2 * 3");
    const QModelIndex title = model.index(0, MovieTableModel::Title);
    EXPECT_EQ(title.data().toString().count(u'\n'), 1);
    EXPECT_TRUE(title.data(Qt::ToolTipRole).toString().contains(u"&lt;b&gt;"));
    for (int column = 0; column < model.columnCount(); ++column) {
        EXPECT_FALSE(model.index(0, column).data(Qt::AccessibleTextRole).toString().isEmpty()) << column;
    }
}
