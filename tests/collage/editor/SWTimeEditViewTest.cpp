#include "collage/editor/SWTimeEditView.h"

#include "collage/editor/SWTimeEditViewDelegate.h"
#include "collage/editor/SplitSliderView.h"
#include "platform/desktop/AlertPanel.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gmock/gmock.h>

#include <cmath>

using namespace Qt::StringLiterals;

using testing::ElementsAre;

static void activate(QWidget &front)
{
    front.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&front] { return front.isActiveWindow(); }));
}

/// Keeps times of up to 100 seconds, and shows each alert as a window of its own, as the real one does.
struct SWTimeEditViewTest : testing::Test, protected SWTimeEditViewDelegate, protected AlertPanel {
    SWTimeEditViewTest()
    {
        auto *layout = new QVBoxLayout(&window);
        for (QWidget *widget : {static_cast<QWidget *>(view), static_cast<QWidget *>(slider), other}) {
            layout->addWidget(widget);
        }
        box.setWindowModality(Qt::WindowModal);
        view->setDelegate(this);
        view->setAlertPanel(this);
        view->flushWithSeconds(60.0);
        window.show();
        activate(window);
        window.grab();
        other->setFocus();
        asked.clear();
    }
    bool isValid(SWTimeEditView & /*view*/, double seconds) override
    {
        asked.push_back(seconds);
        return seconds <= 100.0;
    }
    void didChangeValue(SWTimeEditView & /*view*/, double seconds) override { told.push_back(seconds); }
    int run(const QString & /*title*/, const QString & /*message*/, const QStringList & /*buttons*/) override
    {
        ADD_FAILURE() << "it would wait";
        return 0;
    }
    void show(const QString & /*title*/, const QString & /*message*/, const QStringList & /*buttons*/,
              std::function<void(int)> /*answered*/) override
    {
        ++alerts;
        other->setFocus(); // nothing to ask about again
        box.show();
        activate(box);
    }
    static void type(QLineEdit *field, const char *text)
    {
        QTest::mouseClick(field, Qt::LeftButton);
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, QLatin1StringView(text));
    }
    std::string shown() const
    {
        return QStringList{hour->text(), minute->text(), second->text()}.join(u' ').toStdString();
    }

    QDialog window;
    SWTimeEditView *const view = new SWTimeEditView(&window);
    SplitSliderView *const slider = new SplitSliderView(&window);
    QWidget *const other = new QPushButton(&window);
    QDialog box{&window};
    std::vector<double> asked;
    std::vector<double> told;
    int alerts = 0;
    QLineEdit *const hour = view->findChild<QLineEdit *>(u"lblHour"_s);
    QLineEdit *const minute = view->findChild<QLineEdit *>(u"lblMinite"_s);
    QLineEdit *const second = view->findChild<QLineEdit *>(u"lblSecond"_s);
};

TEST_F(SWTimeEditViewTest, ShowsWholeSecondsAndReadsANumberOrNothing)
{
    for (const auto &[seconds, fields] :
         {std::pair{3725.9, "01 02 05"}, {360000.0, "100 00 00"}, {-3725.0, "-1 -2 -5"}, {1e12, "596523 14 07"}}) {
        view->flushWithSeconds(seconds);
        EXPECT_EQ(shown(), fields);
    }
    view->flushWithSeconds(60.0);
    for (const auto &[text, expected] : {std::pair{"1.5", 61.5}, {"-5", 55.0}, {"5abc", 60.0}, {"nan", 60.0}}) {
        type(second, text);
        EXPECT_EQ(view->secondsValue(), expected);
        second->setText(u"00"_s);
    }
    type(hour, "1e308");
    EXPECT_TRUE(std::isfinite(view->secondsValue()));
}

TEST_F(SWTimeEditViewTest, EveryWayOutAsksAndTellsAChangeOnceOrTakesItBackWithOneAlert)
{
    const std::function<void(QLineEdit *)> waysOut[] = {
        [](QLineEdit *from) { QTest::keyClick(from, Qt::Key_Tab); },
        [this](QLineEdit *) { QTest::mouseClick(hour, Qt::LeftButton); },
        [](QLineEdit *from) { QTest::keyClick(from, Qt::Key_Return); },
        [this](QLineEdit *) { EXPECT_EQ(view->endEditing(), view->secondsValue() == 67.0); },
        [this](QLineEdit *from) {
            QTest::mousePress(slider, Qt::LeftButton, {}, slider->clipRect(true).center().toPoint());
            QTest::mouseMove(slider, slider->rect().center());
            EXPECT_EQ(slider->selectionItem().dStart == 0.0, from == minute) << "a drag behind the alert";
            QTest::mouseRelease(slider, Qt::LeftButton);
        },
    };
    for (const auto &leave : waysOut) {
        view->flushWithSeconds(60.0);
        type(second, "7");
        asked.clear();
        told.clear();
        leave(second);
        EXPECT_THAT(asked, ElementsAre(67.0));
        other->setFocus(); // asks again, but nothing has changed
        EXPECT_THAT(told, ElementsAre(67.0));
        slider->setSelection(0.0, 100.0);
        alerts = 0;
        type(minute, "99");
        leave(minute);
        EXPECT_EQ(alerts, 1);
        box.hide();
        activate(window);
        EXPECT_TRUE(minute->hasFocus());
        EXPECT_EQ(shown(), "00 01 07");
        EXPECT_EQ(told.size(), 1U);
    }
}

TEST_F(SWTimeEditViewTest, AnotherWindowInFrontEndsNothing)
{
    type(minute, "99");
    QDialog front;
    front.show();
    activate(front);
    EXPECT_THAT(asked, ElementsAre());
    activate(window);
    EXPECT_EQ(shown(), "00 99 00");
    other->setFocus();
    EXPECT_EQ(alerts, 1);
    EXPECT_EQ(shown(), "00 01 00") << "what the editing began with";
}

TEST_F(SWTimeEditViewTest, EditingGoesOnInAFieldThatKeepsTheFocus)
{
    type(second, "7");
    ASSERT_TRUE(view->endEditing());
    QTest::keyClicks(second, u"77"_s);
    EXPECT_FALSE(view->endEditing());
    EXPECT_EQ(shown(), "00 01 07");
    view->flushWithSeconds(30.0);
    QTest::keyClicks(second, u"777"_s);
    EXPECT_FALSE(view->endEditing());
    EXPECT_EQ(shown(), "00 01 07") << "what the editing began with";
    box.hide();
    activate(window);
    view->flushWithSeconds(30.0);
    view->abandonEditing(); // another movie
    QTest::keyClicks(second, u"777"_s);
    EXPECT_FALSE(view->endEditing());
    EXPECT_EQ(shown(), "00 00 30");
}

TEST_F(SWTimeEditViewTest, AbandonedEditingIsNeitherAskedAboutNorTold)
{
    const std::function<void()> ways[] = {
        [this] { view->abandonEditing(); },
        [this] { view->setEnabled(false); },
        [this] { view->hide(); },
    };
    for (const auto &abandon : ways) {
        view->setEnabled(true);
        type(second, "77");
        asked.clear();
        abandon();
        EXPECT_THAT(asked, ElementsAre());
        EXPECT_THAT(told, ElementsAre());
        view->flushWithSeconds(60.0);
    }
}
