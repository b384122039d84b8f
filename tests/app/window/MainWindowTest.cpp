// The whole program in this process: real window, real jobs, a scripted tool; questions are answered in advance.

#include "Shared/FrameGrabber.h"
#include "Shared/PreferenceKeys.h"
#include "app/table/JKDropInTipsView.h"
#include "app/table/MyTableView.h"
#include "app/window/AppDelegate.h"
#include "platform/desktop/AlertPanel.h"
#include "platform/desktop/OpenPanel.h"
#include "platform/desktop/Translations.h"
#include "platform/desktop/Workspace.h"
#include "platform/files/FolderBookmarks.h"
#include "platform/store/UserDefaults.h"
#include "prefs/DefaultsSeed.h"
#include "support/ScriptedTool.h"
#include "support/WithoutPrivileges.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// Answers every question as the test has set, and keeps what was asked.
class Answers final : public AlertPanel, public Workspace {
public:
    QStringList alerts;
    int answer = 0;
    QStringList chosen;
    QStringList panels; ///< the folders they opened in
    OpenPanel openPanel = [this](const OpenPanelRequest &request, const auto &done) {
        panels += request.folder;
        done(chosen);
    };

    int run(const QString & /*title*/, const QString &message, const QStringList & /*buttons*/) override
    {
        alerts += message;
        return answer;
    }
    void openFile(const QString & /*path*/) override {}
    void revealFile(const QString & /*path*/) override {}
};

struct MainWindowTest : testing::Test {
    MainWindowTest() { delegate.applicationDidFinishLaunching(); }
    static QString movie(const char *name)
    {
        return QStringLiteral(TESSARINE_TEST_MOVIES "/") + QLatin1StringView(name);
    }
    template<typename Control>
    Control &control(const char *name)
    {
        return *delegate.mainWindow().findChild<Control *>(QLatin1StringView(name));
    }
    /// The file names in the table, from the top.
    QStringList rows()
    {
        QStringList names;
        const QAbstractItemModel &model = *table.model();
        for (int row = 0; row < model.rowCount(); ++row) {
            names += model.index(row, 2).data().toString().section(u'\n', 0, 0);
        }
        return names;
    }
    bool waitForRows(const QStringList &names)
    {
        return QTest::qWaitFor([&] { return rows() == names && !delegate.mainWindow().isJobRunning(); }, 30'000);
    }

    const ScratchFolder folder;
    UserDefaults defaults{folder.path("settings.json")};
    const bool isSeeded = [this] {
        defaults.setText(PreferenceKeys::outputFolder, folder.makeFolder("out"));
        return DefaultsSeed::registDefaults(defaults, DefaultsSeed::resource(), folder.path("home"),
                                            DefaultsSeed::OutputFolder::Now);
    }();
    QString tool = scriptedTool(folder, "tool", "exec " TESSARINE_FFMPEG " \"$@\"");
    FrameGrabber grabber{tool, folder.path()};
    const PathBookmarks bookmarks;
    Answers answers;
    MainQueue mainQueue;
    AppDelegate::Services services()
    {
        return {.defaults = defaults,
                .grabber = grabber,
                .bookmarks = bookmarks,
                .desktop = {answers, answers.openPanel, answers},
                .mainQueue = mainQueue,
                .home = folder.path("home")};
    }
    AppDelegate delegate{services()};
    MyTableView &table = control<MyTableView>("tableView");
};

TEST_F(MainWindowTest, FilesComeBetweenTheRowsAndBatchesStandInReverseOrder)
{
    const auto &start = control<QAbstractButton>("btnStart");
    EXPECT_TRUE(control<QAction>("menuDelete").isEnabled() && !start.isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([this] { return table.findChild<JKDropInTipsView *>() != nullptr; }));
    const auto &hint = *table.findChild<JKDropInTipsView *>();
    QMimeData mime;
    const auto isWelcome = [&](QDropEvent &&event) {
        QCoreApplication::sendEvent(hint.isVisible() ? static_cast<QWidget *>(&table) : table.viewport(), &event);
        return event.isAccepted() && event.dropAction() == Qt::CopyAction;
    };
    const auto drag = [&](const QByteArray &uris, int y) {
        mime.setData(u"text/uri-list"_s, uris);
        return isWelcome(QDragEnterEvent({300, y}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier)) &&
               isWelcome(QDragMoveEvent({300, y}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier));
    };
    for (const char *nothing : {"", "http://example.org/a.mkv", "# file:///a.mkv"}) {
        EXPECT_FALSE(drag(nothing, 99)) << nothing;
    }
    const int high = table.verticalHeader()->defaultSectionSize();
    const std::tuple<const char *, int, QStringList> drops[] = {
        {"clock.mp4", 5, {u"clock.mp4"_s}},
        {"short.mp4", 2, {u"short.mp4"_s, u"clock.mp4"_s}},
        {"odd.mkv", high - 2, {u"short.mp4"_s, u"odd.mkv"_s, u"clock.mp4"_s}},
        {"portrait.mp4", 4 * high, {u"short.mp4"_s, u"odd.mkv"_s, u"clock.mp4"_s, u"portrait.mp4"_s}},
    };
    for (const auto &[name, y, expected] : drops) {
        EXPECT_TRUE(drag("http://example.org/a\r\nfile://" + movie(name).toUtf8(), y));
        EXPECT_TRUE(hint.bHighlighted());
        const bool isMarked =
            table.viewport()->grab().toImage().pixelColor(300, high - 1) == table.palette().highlight();
        EXPECT_EQ(isMarked, y == high - 2);
        EXPECT_TRUE(isWelcome(QDropEvent(QPointF(300, y), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier)));
        EXPECT_TRUE(waitForRows(expected)) << name;
        EXPECT_TRUE(QTest::qWaitFor([&hint] { return !hint.bHighlighted() && !hint.isVisible(); }));
    }
    EXPECT_FALSE(drag("file:///a.mkv", high / 2));
    for (const int row : {1, 3}) {
        table.selectionModel()->select(table.model()->index(row, 0),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    delegate.mainWindow().loadMediasWithPaths({movie("portrait.mp4"), movie("text.mp4"), movie("other-way.mp4")}, 0);
    EXPECT_TRUE(waitForRows(QStringList{u"other-way.mp4"_s, u"portrait.mp4"_s} + std::get<QStringList>(drops[3])));
    EXPECT_EQ(table.selectedRows(), (std::vector{3, 5})) << "movies stay selected wherever they are put";
    QTest::keyClick(&table, Qt::Key_Backspace);
    table.selectRowAlone(0);
    QTest::keyClick(&table, Qt::Key_Down);
    QTest::keyClick(&table, Qt::Key_Delete);
    EXPECT_EQ(rows(), (QStringList{u"other-way.mp4"_s, u"short.mp4"_s, u"clock.mp4"_s}));
    EXPECT_TRUE(start.isEnabled());
    control<QAction>("clearlibrary").trigger();
    EXPECT_FALSE(start.isEnabled());
    EXPECT_TRUE(QTest::qWaitFor([&hint] { return hint.isVisible(); }));
}

TEST_F(MainWindowTest, FilesThatComeWhileOthersLoadAreOneBatchThatOneCancelEnds)
{
    const auto runsSlowTool = [this](const char *name, const char *end) {
        std::filesystem::remove(folder.bytes("running").toStdString());
        scriptedTool(folder, "tool", QByteArray("touch \"${0%/*}/running\"; ") + end);
        delegate.openFile(movie(name));
        return QTest::qWaitFor([this] { return folder.has("running"); }, 30'000);
    };
    const char *waits = "while ! [ -e \"${0%/*}/go\" ]; do sleep 0.02; done; exec " TESSARINE_FFMPEG " \"$@\"";
    delegate.openFile(movie("text.mp4"));
    ASSERT_TRUE(runsSlowTool("clock.mp4", waits));
    EXPECT_TRUE(QTest::qWaitFor([&] { return control<QLabel>("lblPrgTip").text() == u"Loading 2 of 2"; }));
    delegate.openFile(movie("missing.mp4"));
    delegate.openFile(movie("short.mp4"));
    auto &sheet = control<QDialog>("VXLoadingWndCtl");
    QTest::keyClick(&sheet, Qt::Key_Return); // typed ahead: no answer to anything
    folder.write("go", {});
    ASSERT_TRUE(waitForRows({u"short.mp4"_s, u"clock.mp4"_s}));
    EXPECT_EQ(control<QLabel>("lblPrgTip").text(), u"Loading 3 of 3"_s);
    QStringList all = rows();
    const std::pair<const char *, std::function<void()>> cancels[] = {
        {waits, [this] { control<QAbstractButton>("btnCancel").click(); }}, // a movie in work is finished
        {waits, [&sheet] { EXPECT_FALSE(sheet.close()); }},
        {"exec sleep 60", [&sheet] { QTest::keyClick(&sheet, Qt::Key_Escape); }}, // but nobody waits for ever
    };
    for (const auto &[end, cancel] : cancels) {
        std::filesystem::remove(folder.bytes("go").toStdString());
        ASSERT_TRUE(runsSlowTool("portrait.mp4", end));
        delegate.openFile(movie("odd.mkv"));
        cancel();
        EXPECT_TRUE(sheet.isVisible());
        folder.write("go", {});
        all = (end == waits ? QStringList{u"portrait.mp4"_s} : QStringList()) + all;
        EXPECT_TRUE(waitForRows(all));
    }
    const QVariant thumbnail = table.model()->index(0, 0).data(Qt::DecorationRole);
    EXPECT_FALSE(thumbnail.value<QImage>().isNull());
}

TEST_F(MainWindowTest, ClosingDuringAnExportCancelsWaitsAndLeavesNothing)
{
    delegate.openFile(movie("clock.mp4"));
    ASSERT_TRUE(waitForRows({u"clock.mp4"_s}));
    scriptedTool(folder, "tool", "touch \"${0%/*}/running\"; exec sleep 60");
    delegate.mainWindow().startDown();
    ASSERT_TRUE(QTest::qWaitFor([this] { return folder.has("running"); }, 30'000));
    delegate.openFile(movie("short.mp4")); // waits for the export, and is dropped with the program
    ASSERT_TRUE(QTest::qWaitForWindowActive(&control<QDialog>("VXLoadingWndCtl")));
    QTest::keyClick(&control<QDialog>("VXLoadingWndCtl"), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(delegate.mainWindow().isVisible());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !delegate.mainWindow().isVisible(); }, 10'000));
    EXPECT_EQ(folder.names("out"), QStringList());
}

TEST_F(MainWindowTest, FramesThatAreMissingAreTold)
{
    delegate.openFile(folder.link(movie("short.mp4").toUtf8(), "gone.mp4"));
    ASSERT_TRUE(waitForRows({u"gone.mp4"_s}));
    QFile::remove(folder.path("gone.mp4"));
    delegate.mainWindow().startDown();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !delegate.mainWindow().isJobRunning(); }, 30'000));
    EXPECT_EQ(folder.names("out").size(), 1);
    EXPECT_TRUE(control<QWidget>("lblStatus")
                    .toolTip()
                    .contains(u"gone.mp4: 6 of 6 frames could not be grabbed: No such file or directory<"));

    // Its details name it, and try it again once it is there.
    const auto offers = control<QWidget>("statusLine").findChildren<QToolButton *>();
    ASSERT_EQ(offers.size(), 2);
    offers.at(1)->click();
    auto &details = *delegate.mainWindow().findChild<QTableWidget *>()->window();
    EXPECT_TRUE(details.findChild<QTableWidget *>()->item(0, 1)->text().contains(u"No such file"));
    folder.link(movie("short.mp4").toUtf8(), "gone.mp4");
    details.findChild<QPushButton *>(u"retry"_s)->click();
    ASSERT_TRUE(QTest::qWaitFor([this] { return folder.names("out").size() == 2; }, 30'000));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !delegate.mainWindow().isJobRunning(); }, 30'000));
    EXPECT_EQ(control<QWidget>("lblStatus").toolTip(), QString());
}

TEST_F(MainWindowTest, BesideTheMoviesAsksForTheFoldersThatCannotBeWritten)
{
    for (const char *name : {"a/a.mp4", "b/b.mp4"}) {
        folder.makeFolder(QByteArray(name).left(1));
        delegate.openFile(folder.link(movie("short.mp4").toUtf8(), name));
    }
    ASSERT_TRUE(waitForRows({u"b.mp4"_s, u"a.mp4"_s}));
    auto &box = control<QCheckBox>("chkSameOrigin");
    box.toggle(); // as a screen reader has it done
    EXPECT_TRUE(answers.alerts.isEmpty()) << "as root, or in one's own folders";
    EXPECT_FALSE(control<QLineEdit>("lblOutputPath").isEnabled());
    EXPECT_TRUE(UserDefaults(folder.path("settings.json")).boolValue(PreferenceKeys::sameAsOrigin)) << "at once";
    box.click();
    const WithoutPrivileges user;
    for (const auto &[answer, isOn, panels] : {std::tuple{0, true, 2}, {1, false, 0}}) {
        answers.answer = answer;
        answers.panels.clear();
        box.setChecked(false);
        box.click();
        EXPECT_EQ(box.isChecked(), isOn);
        EXPECT_EQ(answers.panels.size(), panels);
        EXPECT_EQ(defaults.boolValue(PreferenceKeys::sameAsOrigin), isOn);
        EXPECT_TRUE(answers.alerts.last().contains(u"movie: \na.mp4\"\n is not accessable"_s));
    }
}

TEST_F(MainWindowTest, TheFolderShownIsThereOrTheWindowSaysWhatToDo)
{
    EXPECT_TRUE(folder.has("home/Pictures/Tessarine")) << "at every start";
    answers.chosen = {folder.makeFolder("chosen")};
    control<QAbstractButton>("btnBrowser").click();
    EXPECT_EQ(UserDefaults(folder.path("settings.json")).textValue(PreferenceKeys::outputFolder),
              answers.chosen.first());
    std::filesystem::remove(folder.bytes("chosen").toStdString());
    folder.write("chosen", "a file is no folder");
    for (const bool canBeMade : {true, false}) {
        std::filesystem::remove(folder.bytes("home/Pictures/Tessarine").toStdString());
        if (!canBeMade) {
            folder.write("home/Pictures/Tessarine", "");
        }
        AppDelegate next{services()};
        next.applicationDidFinishLaunching();
        const QWidget &window = next.mainWindow();
        EXPECT_EQ(window.findChild<QLineEdit *>(u"lblOutputPath"_s)->text(), folder.path("home/Pictures/Tessarine"));
        EXPECT_EQ(window.findChild<QLabel *>(u"lblStatus"_s)->text().isEmpty(), canBeMade);
    }
}

TEST_F(MainWindowTest, TheEditorStepsThroughTheListWhileBatchesWait)
{
    const QStringList all = {u"portrait.mp4"_s, u"short.mp4"_s, u"clock.mp4"_s};
    delegate.mainWindow().loadMediasWithPaths({movie("clock.mp4"), movie("short.mp4"), movie("portrait.mp4")}, 0);
    ASSERT_TRUE(waitForRows(all));
    EXPECT_FALSE(control<QAction>("customcollage").isEnabled());
    const auto open = [&](int row) {
        table.selectRow(row);
        control<QAction>("customcollage").trigger();
    };
    open(2);
    auto &previous = control<QAbstractButton>("btnPrev");
    auto &next = control<QAbstractButton>("btnNext");
    EXPECT_TRUE(previous.isEnabled() && !next.isEnabled());
    control<QAbstractButton>("btnCancel").click();
    open(1); // away from the ends both stay as they were
    EXPECT_TRUE(previous.isEnabled() && !next.isEnabled());
    previous.click();
    EXPECT_TRUE(!previous.isEnabled() && next.isEnabled());
    EXPECT_EQ(table.currentIndex().row(), 0);
    delegate.openFile(movie("odd.mkv"));
    for (int row : {1, 2}) {
        control<QLineEdit>("lblGridRowNum").setText(QString::number(row + 5));
        next.click();
        EXPECT_TRUE(previous.isEnabled());
        EXPECT_EQ(next.isEnabled(), row == 1);
    }
    EXPECT_EQ(rows(), all);
    control<QAbstractButton>("btnDone").click();
    EXPECT_TRUE(waitForRows(QStringList{u"odd.mkv"_s} + all));
    QStringList grids;
    for (int row = 1; row < 4; ++row) {
        grids += table.model()->index(row, 3).data().toString();
    }
    EXPECT_EQ(grids, (QStringList{u"6 * 3"_s, u"7 * 3"_s, u"2 * 3"_s}));
    EXPECT_EQ(table.currentIndex().row(), 3) << "the keyboard stays with its movie";
    auto &undo = control<QAction>("undo");
    EXPECT_TRUE(undo.isEnabled());
    for (int visit = 0; visit < 2; ++visit) {
        undo.trigger();
    }
    EXPECT_FALSE(undo.isEnabled());
    EXPECT_EQ(table.model()->index(2, 3).data().toString(), u"2 * 3");
}

TEST_F(MainWindowTest, TheListIsSortedFilteredAndPutBack)
{
    const Translations english{QLocale(QLocale::English)};
    QStringList paths;
    for (const char *name : {"two a&.mp4", "Two b.mp4", "clip 9.mp4", "clip 10.mp4"}) {
        paths += folder.link(movie("short.mp4").toUtf8(), name);
    }
    const QStringList loaded = {u"clip 10.mp4"_s, u"clip 9.mp4"_s, u"Two b.mp4"_s, u"two a&.mp4"_s};
    const QStringList sorted = {u"clip 9.mp4"_s, u"clip 10.mp4"_s, u"two a&.mp4"_s, u"Two b.mp4"_s};
    delegate.mainWindow().loadMediasWithPaths(paths, 0);
    ASSERT_TRUE(waitForRows(loaded));
    QHeaderView &headings = *table.horizontalHeader();
    const auto clickHeading = [&headings](int column) {
        const QPoint place(headings.sectionViewportPosition(column) + 20, headings.height() / 2);
        QTest::mouseClick(headings.viewport(), Qt::LeftButton, {}, place);
        return headings.isSortIndicatorShown();
    };
    EXPECT_FALSE(clickHeading(0));
    EXPECT_TRUE(clickHeading(2));
    EXPECT_EQ(rows(), sorted);
    EXPECT_TRUE(clickHeading(2));
    EXPECT_EQ(rows(), QStringList(sorted.rbegin(), sorted.rend()));
    EXPECT_TRUE(table.selectedRows().empty());
    auto &undo = control<QAction>("undo");
    EXPECT_EQ(undo.text(), u"Undo Sort by Name");
    undo.trigger();
    EXPECT_EQ(rows(), sorted);

    QApplication::setKeyboardInputInterval(60'000);
    table.setCurrentIndex(table.model()->index(0, 0));
    QTest::keyClicks(&table, u"two b"_s);
    EXPECT_EQ(table.currentIndex().row(), 3);
    control<QAction>("moveUp").trigger();
    EXPECT_EQ(rows(), (QStringList{sorted[0], sorted[1], sorted[3], sorted[2]}));
    control<QAction>("moveDown").trigger();
    EXPECT_EQ(rows(), sorted);

    control<QAction>("filter").trigger();
    auto &field = control<QLineEdit>("filterField");
    QTest::keyClicks(&field, u"CLIP"_s);
    EXPECT_EQ(rows(), sorted.first(2));
    EXPECT_EQ(control<QLabel>("lblSummary").text(), u"2 of 4 movies shown, all are exported; 00:00:12 in all");
    table.selectRow(0);
    QTest::keyClick(&table, Qt::Key_Delete);
    EXPECT_EQ(table.selectedRows(), std::vector{0}) << "the next one";
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(rows(), sorted.sliced(1));
    defaults.setBool(PreferenceKeys::clearAfterFinish, true);
    scriptedTool(folder, "tool", "exit 1"); // an image without frames is one, too
    delegate.mainWindow().startDown();
    EXPECT_TRUE(waitForRows({}));
    EXPECT_EQ(folder.names("out").size(), 1);
    undo.trigger();
    EXPECT_EQ(undo.text(), u"Undo Remove 1 Movie");
    undo.trigger();
    EXPECT_EQ(rows(), sorted);
    EXPECT_EQ(table.selectedMovies(), MovieList::Movies{table.movieAt(0)}) << "what has come back";
}

TEST_F(MainWindowTest, TheStatusLineSaysWhatTheListHolds)
{
    const Translations english{QLocale(QLocale::English)};
    delegate.mainWindow().loadMediasWithPaths({movie("clock.mp4"), movie("short.mp4"), movie("clock.mp4")}, 0);
    ASSERT_TRUE(waitForRows({u"clock.mp4"_s, u"short.mp4"_s, u"clock.mp4"_s}));
    const auto &summary = control<QLabel>("lblSummary");
    EXPECT_EQ(summary.text(), u"3 movies, 00:00:27 in all");
    table.selectRow(2);
    control<QAction>("deleteMovies").trigger();
    table.selectRow(1);
    control<QAction>("deleteMovies").trigger();
    EXPECT_EQ(summary.text(), u"1 movie, 00:00:12 in all");
    control<QAction>("clearlibrary").trigger();
    EXPECT_EQ(summary.text(), QString());
}

TEST_F(MainWindowTest, EveryControlHasANameAndIsReachedByTab)
{
    delegate.openFile(movie("short.mp4"));
    ASSERT_TRUE(waitForRows({u"short.mp4"_s}));
    QApplication::setActiveWindow(&delegate.mainWindow());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&delegate.mainWindow()));
    table.setFocus();
    for (const char *name : {"tableView", "lblOutputPath", "btnBrowser", "btnOpen", "chkSameOrigin", "btnStart"}) {
        ASSERT_EQ(QApplication::focusWidget(), &control<QWidget>(name)) << name;
        const auto *spoken = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
        EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << name;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}
