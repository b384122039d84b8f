#include "platform/threads/MainQueue.h"
#include "platform/widgets/FileOpenPanel.h"
#include "platform/widgets/MessageAlertPanel.h"
#include "support/ScratchFolder.h"

#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include <gmock/gmock.h>

#include <future>
#include <memory>

using namespace Qt::StringLiterals;

using testing::ElementsAre;
using testing::UnorderedElementsAre;

struct PanelsTest : testing::Test {
    PanelsTest() { window.show(); }
    template<typename Dialog>
    Dialog *dialog() const
    {
        return window.findChild<Dialog *>();
    }

    QWidget window;
    MainQueue mainQueue;
    MessageAlertPanel alert{mainQueue};
    const QStringList buttons{u"Authorize"_s, u"Other"_s, u"Cancel"_s};
};

TEST_F(PanelsTest, AlertAnswersWithTheButtonsIndex)
{
    const std::pair<std::function<void(QMessageBox &)>, int> answers[] = {
        {[](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Return); }, 0},
        {[](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Escape); }, 2},
        {[](QMessageBox &box) { QTest::mouseClick(box.buttons().at(1), Qt::LeftButton); }, 1},
    };
    for (const auto &[give, expected] : answers) {
        std::vector<int> given;
        alert.show(u"<b>Title"_s, u"<i>/a/b"_s, buttons, [&given](int answer) { given.push_back(answer); });
        EXPECT_TRUE(given.empty()) << "it must not wait";
        QMessageBox *box = dialog<QMessageBox>();
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->windowModality(), Qt::WindowModal);
        EXPECT_EQ(box->text(), u"<b>Title");
        EXPECT_EQ(box->findChild<QLabel *>(u"qt_msgbox_informativelabel"_s)->textFormat(), Qt::PlainText);
        give(*box);
        EXPECT_THAT(given, ElementsAre(expected));
        std::unique_ptr<QMessageBox>(dialog<QMessageBox>()).reset();
    }
}

TEST_F(PanelsTest, ThreadThatAsksWaitsForTheAnswerOfTheMainThread)
{
    for (const bool answered : {true, false}) { // else its question goes away
        auto answer = std::async(std::launch::async, [this] { return alert.run({}, {}, buttons); });
        EXPECT_TRUE(QTest::qWaitFor([this] { return dialog<QMessageBox>() != nullptr; }));
        auto *box = dialog<QMessageBox>();
        if (answered) {
            QTest::mouseClick(box->buttons().at(1), Qt::LeftButton);
        }
        EXPECT_TRUE(!answered || answer.get() == 1);
        std::unique_ptr<QMessageBox>(box).reset();
        EXPECT_TRUE(answered || answer.get() == 2);
    }
    EXPECT_EQ(alert.run({}, {}, buttons), 2); // the main thread's question is shown without waiting
    EXPECT_NE(dialog<QMessageBox>(), nullptr);
}

struct FileOpenPanelTest : PanelsTest {
    /// Opens the panel on a folder with things to choose, and waits until it shows this many of them.
    QFileDialog &open(int names)
    {
        for (const char *name : {"one.mkv", "TWO.MKV", "other.txt", "folder/x", "second/x"}) {
            scratch.write(name);
        }
        panel(request, [this](const QStringList &paths) { chosen = paths; });
        auto *opened = dialog<QFileDialog>();
        const auto *list = opened->findChild<QTreeView *>(u"treeView"_s);
        EXPECT_TRUE(QTest::qWaitFor([list, names] { return list->model()->rowCount(list->rootIndex()) == names; }));
        return *opened;
    }

    const ScratchFolder scratch;
    OpenPanelRequest request{u"Import"_s, u"Import it"_s, scratch.path(), false, true, true, {u"mkv"_s}};
    OpenPanel panel = fileOpenPanel(false);
    QStringList chosen{u"nothing yet"_s};
};

TEST_F(FileOpenPanelTest, TakesFilesAndFoldersTogetherOrNothingOnCancel)
{
    QFileDialog *opened = &open(2);
    opened->findChild<QTreeView *>(u"treeView"_s)->selectAll();
    static_cast<QDialog *>(opened)->accept();
    EXPECT_THAT(chosen, UnorderedElementsAre(scratch.path("folder"), scratch.path("second")));
    std::unique_ptr<QFileDialog>(opened).reset();
    request.files = true;
    opened = &open(4); // the text file is not offered
    EXPECT_EQ(opened->windowTitle() + u'|' + opened->labelText(QFileDialog::Accept), u"Import|Import it");
    opened->findChild<QLineEdit *>()->setText(u"\"one.mkv\" \"folder\""_s); // as the user would type it
    static_cast<QDialog *>(opened)->accept();
    EXPECT_THAT(chosen, UnorderedElementsAre(scratch.path("one.mkv"), scratch.path("folder")));
    std::unique_ptr<QFileDialog>(opened).reset();
    open(4).reject();
    EXPECT_EQ(chosen, QStringList());
}
