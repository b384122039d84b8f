#include "platform/PreferenceKeys.h"
#include "platform/UserDefaults.h"
#include "prefs/MASPreferencesWindowController.h"
#include "support/ScratchFolder.h"

#include <QAction>
#include <QMainWindow>
#include <QTest>
#include <QToolBar>

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

using Diary = std::vector<std::string>;

/// A pane that writes into a diary what becomes of it.
class DiaryPane final : public PreferencePane {
public:
    DiaryPane(const QString &paneName, Diary &entries, QSize size) : name(paneName), diary(entries), leastSize(size) {}

    QString identifier() const override { return name; }
    QIcon toolbarItemImage() const override { return {}; }
    QString toolbarItemLabel() const override { return u"label of " + name; }
    void viewDidDisappear() override { write("disappear"); }

    bool mayLeave = true;

protected:
    void loadView(QWidget &view) override { view.setMinimumSize(leastSize); }
    void awakeFromNib() override { write("awake"); }
    bool commitControls() override
    {
        write("commit");
        return mayLeave;
    }

private:
    void write(const char *what) { diary.push_back(std::string(what) + ' ' + name.toStdString()); }

    const QString name;
    Diary &diary;
    const QSize leastSize;
};

class PreferencesWindowTest : public testing::Test {
protected:
    PreferencesWindowTest()
    {
        add("first", {300, 100});
        add("second", {500, 250});
    }

    void add(const char *name, QSize size)
    {
        panes.push_back(std::make_unique<DiaryPane>(QLatin1StringView(name), diary, size));
    }
    DiaryPane &pane(std::size_t index) { return dynamic_cast<DiaryPane &>(*panes.at(index)); }
    QString selected() { return controller->selectedViewController()->identifier(); }
    /// The pages of the tool bar.
    QList<QAction *> items() { return controller->window().findChild<QToolBar *>()->actions(); }
    void show()
    {
        controller->showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&controller->window()));
    }
    /// A controller as after a restart.
    void restart()
    {
        controller.reset();
        controller = std::make_unique<MASPreferencesWindowController>(panes, QStringLiteral("Title"), defaults);
    }

    const ScratchFolder scratch;
    UserDefaults defaults{scratch.path("store.ini")};
    Diary diary;
    MASPreferencesWindowController::Panes panes;
    std::unique_ptr<MASPreferencesWindowController> controller =
        std::make_unique<MASPreferencesWindowController>(panes, QStringLiteral("Title"), defaults);
};

TEST_F(PreferencesWindowTest, LeavingAPaneCommitsItFirstAndThenTellsIt)
{
    controller->window();
    diary.clear();
    items().at(1)->trigger();
    EXPECT_THAT(diary, ElementsAre("commit first", "disappear first"));
    EXPECT_EQ(defaults.textValue(PreferenceKeys::preferencesSelection), u"second");
    diary.clear();
    controller->selectControllerAtIndex(1); // already there: nothing to leave
    EXPECT_TRUE(diary.empty());
}

TEST_F(PreferencesWindowTest, PaneThatRefusesStaysAndKeepsTheWindowOpen)
{
    show();
    pane(0).mayLeave = false;
    items().at(1)->trigger();
    EXPECT_EQ(selected(), u"first");
    EXPECT_TRUE(items().at(0)->isChecked() && !items().at(1)->isChecked());
    EXPECT_EQ(defaults.textValue(PreferenceKeys::preferencesSelection), u"first");
    QTest::keyClick(&controller->window(), Qt::Key_Escape);
    EXPECT_TRUE(controller->window().isVisible());

    pane(0).mayLeave = true;
    diary.clear();
    QTest::keyClick(&controller->window(), Qt::Key_Escape);
    EXPECT_FALSE(controller->window().isVisible());
    EXPECT_THAT(diary, ElementsAre("commit first"));
    show(); // it was only hidden
    EXPECT_TRUE(pane(0).view().isVisible());
}

TEST_F(PreferencesWindowTest, SizesPlaceAndSelectionComeBackAfterARestart)
{
    show();
    EXPECT_EQ(pane(0).view().size(), QSize(500, 100)); // as wide as the widest, as high as itself
    controller->selectControllerAtIndex(1);
    EXPECT_EQ(pane(1).view().size(), QSize(500, 250));
    controller->window().move(37, 41);
    controller->window().resize(controller->window().size() + QSize(60, 30));
    EXPECT_EQ(defaults.textValue(PreferenceKeys::preferencesFrame(u"second")), u"{{0, 0}, {560, 280}}");
    EXPECT_EQ(defaults.textValue(PreferenceKeys::preferencesTopLeft), u"{37, 41}");

    restart();
    show();
    EXPECT_EQ(selected(), u"second");
    EXPECT_EQ(pane(1).view().size(), QSize(560, 280));
    EXPECT_EQ(controller->window().pos(), QPoint(37, 41));
    controller->selectControllerAtIndex(0);
    EXPECT_EQ(pane(0).view().size(), QSize(500, 100));
}

TEST_F(PreferencesWindowTest, NonsenseInTheStoreIsNotUsed)
{
    controller->window().move(5, 6);
    for (const QString &place : {QStringLiteral("{100000, 5}"), QStringLiteral("{-3000, -3000}"), QStringLiteral("{7}"),
                                 QStringLiteral("{nan, inf}"), QStringLiteral("{99999999999999999999, 1}")}) {
        defaults.setText(PreferenceKeys::preferencesTopLeft, place);
        defaults.setText(PreferenceKeys::preferencesSelection, QStringLiteral("nobody"));
        defaults.setText(PreferenceKeys::preferencesFrame(u"first"), QStringLiteral("{{0, 0}, {1, 999999}}"));
        restart();
        show();
        EXPECT_TRUE(controller->window().screen()->geometry().contains(controller->window().geometry().topLeft()));
        EXPECT_EQ(selected(), u"first");
        EXPECT_GE(pane(0).view().width(), 300);
        EXPECT_LE(controller->window().height(), controller->window().screen()->availableSize().height());
    }
}

} // namespace
