#include "Shared/PreferenceKeys.h"
#include "platform/store/UserDefaults.h"
#include "prefs/panes/MASPreferencesWindowController.h"
#include "support/ScratchFolder.h"

#include <QAction>
#include <QMainWindow>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// A pane that may refuse to be left.
struct StubbornPane final : PreferencePane {
    StubbornPane(const QString &paneName, QSize size) : name(paneName), leastSize(size) {}
    QString identifier() const override { return name; }
    QIcon toolbarItemImage() const override { return {}; }
    QString toolbarItemLabel() const override { return u"label of " + name; }
    void loadView(QWidget &view) override { view.setMinimumSize(leastSize); }
    void awakeFromNib() override {}
    bool commitControls() override
    {
        ++commits;
        return mayLeave;
    }

    bool mayLeave = true;
    int commits = 0;
    const QString name;
    const QSize leastSize;
};

struct PreferencesWindowTest : testing::Test {
    PreferencesWindowTest()
    {
        panes.push_back(std::make_unique<StubbornPane>(u"first"_s, QSize(300, 100)));
        panes.push_back(std::make_unique<StubbornPane>(u"second"_s, QSize(500, 250)));
    }
    StubbornPane &pane(std::size_t index) { return dynamic_cast<StubbornPane &>(*panes.at(index)); }
    QString selected() { return controller->selectedViewController()->identifier(); }
    QList<QAction *> toolbarItems() { return controller->window().findChild<QToolBar *>()->actions(); }
    void show()
    {
        controller->showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&controller->window()));
    }
    void restart()
    {
        controller.reset();
        controller = std::make_unique<MASPreferencesWindowController>(panes, u"Title"_s, defaults);
    }

    const ScratchFolder scratch;
    UserDefaults defaults{scratch.path("settings.json")};
    MASPreferencesWindowController::Panes panes;
    std::unique_ptr<MASPreferencesWindowController> controller =
        std::make_unique<MASPreferencesWindowController>(panes, u"Title"_s, defaults);
};

TEST_F(PreferencesWindowTest, PaneThatRefusesStaysAndKeepsTheWindowOpen)
{
    show();
    pane(0).mayLeave = false;
    toolbarItems().at(1)->trigger();
    EXPECT_EQ(selected(), u"first");
    EXPECT_TRUE(toolbarItems().at(0)->isChecked());
    QTest::keyClick(&controller->window(), Qt::Key_Escape);
    EXPECT_TRUE(controller->window().isVisible());
    pane(0).mayLeave = true;
    pane(0).commits = 0;
    QTest::keyClick(&controller->window(), Qt::Key_Escape);
    EXPECT_FALSE(controller->window().isVisible());
    auto *button = qobject_cast<QToolButton *>(
        controller->window().findChild<QToolBar *>()->widgetForAction(toolbarItems().at(1)));
    button->toggle(); // as a screen reader has it done
    button->toggle(); // what is selected stays so
    EXPECT_TRUE(QTest::qWaitFor([button] { return button->isChecked(); }));
    EXPECT_EQ(pane(0).commits, 2);
    EXPECT_EQ(selected(), u"second");
}

TEST_F(PreferencesWindowTest, SizesPlaceAndSelectionComeBackAfterARestart)
{
    show();
    EXPECT_EQ(pane(0).view().size(), QSize(500, 100)); // as wide as the widest, as high as itself
    controller->selectControllerAtIndex(1);
    EXPECT_EQ(pane(1).view().size(), QSize(500, 250));
    controller->window().move(37, 41);
    controller->window().resize(controller->window().size() + QSize(60, 30));
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
    for (const QString &place : {u"{100000, 5}"_s, u"{-3000, -3000}"_s, u"{790, 790}"_s, u"{nan, inf}"_s}) {
        defaults.setText(PreferenceKeys::preferencesTopLeft, place);
        defaults.setText(PreferenceKeys::preferencesSelection, u"nobody"_s);
        defaults.setText(PreferenceKeys::preferencesFrame(u"first"), u"{{0, 0}, {1, 999999}}"_s);
        restart();
        show();
        EXPECT_TRUE(controller->window().screen()->availableGeometry().contains(controller->window().geometry()));
        EXPECT_EQ(selected(), u"first");
        EXPECT_GE(pane(0).view().width(), 300);
    }
}
