#include "app/window/MyTableView.h"

#include "app/window/DropDelegate.h"
#include "app/window/JKDropInTipsView.h"
#include "app/window/MovieTableModel.h"
#include "app/window/TableReloadDelegate.h"
#include "collage/KTMovieObject.h"
#include "platform/files/PathText.h"

#include <QMimeData>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class Controller final : public TableReloadDelegate, public DropDelegate {
public:
    void deleteFileDown(MyTableView & /*table*/) override { heard << u"delete"_s; }
    void spaceKeyDown(MyTableView & /*table*/) override { heard << u"space"_s; }
    void tableViewReloaded(MyTableView & /*table*/) override { ++reloads; }
    void acceptDrop(const QStringList &paths, int row) override
    {
        heard += QString::number(row) + u' ' + paths.join(u' ');
    }

    QStringList heard;
    int reloads = 0;
};

struct MyTableViewTest : testing::Test {
    MyTableViewTest()
    {
        table.setMovies(model);
        table.setReloadDelegate(&controller);
        table.setDropDelegate(&controller);
        table.resize(800, 600);
        table.show();
    }
    void add(int count)
    {
        for (int index = 0; index < count; ++index) {
            auto movie = std::make_shared<KTMovieObject>();
            movie->filePath = u"/%1"_s.arg(list.count());
            list.insert(list.count(), movie);
        }
        reload();
    }
    void reload()
    {
        const int before = controller.reloads;
        table.reloadData();
        ASSERT_TRUE(QTest::qWaitFor([&] { return controller.reloads > before; }));
    }
    const JKDropInTipsView *hint() const { return table.findChild<JKDropInTipsView *>(); }
    bool hintIsShown() const { return hint() && hint()->isVisible(); }
    QRgb markAt(int y) { return table.viewport()->grab().toImage().pixel(300, y); }
    QRgb mark() const { return table.palette().highlight().color().rgb(); }
    /// Sends a drag or a drop to that height of the viewport, or of the table, where the hint covers it. Whether it is
    /// welcome there.
    template<typename Event, typename Point>
    bool send(Point at)
    {
        Event event(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(hintIsShown() ? static_cast<QWidget *>(&table) : table.viewport(), &event);
        return event.isAccepted() && event.dropAction() == Qt::CopyAction;
    }
    bool drag(const QByteArray &uris, int y)
    {
        mime.setData(u"text/uri-list"_s, uris);
        return send<QDragEnterEvent>(QPoint(300, y)) && send<QDragMoveEvent>(QPoint(300, y));
    }
    bool drop(const QByteArray &uris, int y)
    {
        drag(uris, y);
        return send<QDropEvent>(QPointF(300, y));
    }

    MovieList list;
    MovieTableModel model{list};
    MyTableView table;
    Controller controller;
    QMimeData mime;
};

TEST_F(MyTableViewTest, TheHintCoversTheEmptyTableOnlyAndIsHighlightedUnderFiles)
{
    reload();
    ASSERT_TRUE(hintIsShown());
    table.resize(500, 300);
    EXPECT_EQ(hint()->geometry(), table.rect());
    EXPECT_TRUE(drag("file:///a.mkv", 5)); // where the heading is under the hint
    EXPECT_TRUE(hint()->bHighlighted());
    EXPECT_TRUE(drop("file:///a.mkv", 200));
    EXPECT_FALSE(hint()->bHighlighted());
    EXPECT_EQ(controller.heard, QStringList{u"0 /a.mkv"_s});
    add(1);
    EXPECT_FALSE(hintIsShown());
    list.removeAll();
    table.reloadData();
    EXPECT_FALSE(hintIsShown()); // judged when the rows have been drawn
    ASSERT_TRUE(QTest::qWaitFor([this] { return hintIsShown(); }));
}

TEST_F(MyTableViewTest, TwoKeysAreForwardedAndTheOthersMoveAsUsual)
{
    add(3);
    table.selectRowAlone(0);
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Space, Qt::Key_Down}) {
        QTest::keyClick(&table, key);
    }
    EXPECT_EQ(controller.heard.join(u' '), u"delete delete space");
    EXPECT_EQ(table.selectedRows(), std::vector{1});
    table.setReloadDelegate(nullptr);
    QTest::keyClick(&table, Qt::Key_Delete);
}

TEST_F(MyTableViewTest, MoviesStaySelectedWhereverAReloadPutsThem)
{
    add(6);
    table.selectRowAlone(1);
    table.selectionModel()->select(model.index(4, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    list.insert(0, std::make_shared<KTMovieObject>());
    table.reloadData();
    EXPECT_EQ(table.selectedRows(), (std::vector{2, 5}));
    list.remove(table.selectedMovies());
    table.reloadData();
    EXPECT_TRUE(table.selectedRows().empty());
    EXPECT_EQ(list.count(), 5);
}

TEST_F(MyTableViewTest, FilesGoBetweenRowsNeverOntoOne)
{
    add(3);
    const int row = table.rowHeight(0);
    for (const auto &[y, welcome, before] : {std::tuple{2, true, 0},
                                             {row / 2, false, 0},
                                             {row - 2, true, 1},
                                             {row + 2, true, 1},
                                             {3 * row + 50, true, 3}}) {
        controller.heard.clear();
        EXPECT_EQ(drag("file:///a.mkv\r\n", y), welcome) << y;
        EXPECT_EQ(markAt(std::max(0, before * row - 1)) == mark(), welcome) << y;
        EXPECT_EQ(drop("file:///a.mkv\r\n", y), welcome) << y;
        EXPECT_EQ(controller.heard.join(u'|'), welcome ? QString::number(before) + u" /a.mkv" : QString());
        EXPECT_NE(markAt(std::max(0, before * row - 1)), mark());
    }
}

TEST_F(MyTableViewTest, OnlyLocalFilesAreTakenByteForByte)
{
    for (const char *nothing : {"", "http://example.org/a.mkv", "# file:///a.mkv", "file://elsewhere/a.mkv"}) {
        EXPECT_FALSE(drag(nothing, 300)) << nothing;
        EXPECT_FALSE(drop(nothing, 300)) << nothing;
    }
    EXPECT_TRUE(controller.heard.isEmpty());
    EXPECT_TRUE(drop("http://example.org/a\r\nfile:///a%20b%FF\nfile:///%F0%9F%8E%AC\r\n", 300));
    EXPECT_EQ(controller.heard, QStringList{u"0 " + PathText::fromBytes("/a b\xff /\xf0\x9f\x8e\xac")});
    table.setDropDelegate(nullptr);
    EXPECT_FALSE(drop("file:///a.mkv", 300));
}
