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
#include <stdexcept>

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
        throw std::logic_error("it would wait");
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

TEST_F(SWTimeEditViewTest, EveryWayOutOfAFieldAsksAndAnAcceptedChangeIsToldOnce)
{
    const std::function<void()> waysOut[] = {
        [this] { QTest::keyClick(second, Qt::Key_Tab); },
        [this] { QTest::mouseClick(minute, Qt::LeftButton); },
        [this] { QTest::keyClick(second, Qt::Key_Return); },
        [this] { EXPECT_TRUE(view->endEditing()); },
    };
    for (const auto &leave : waysOut) {
        view->flushWithSeconds(60.0);
        type(second, "7");
        asked.clear();
        told.clear();
        leave();
        EXPECT_THAT(asked, ElementsAre(67.0));
        other->setFocus(); // asks again, but nothing has changed
        EXPECT_THAT(told, ElementsAre(67.0));
    }
}

TEST_F(SWTimeEditViewTest, ARefusedTimeIsTakenBackWithOneAlertAndTheFocusStays)
{
    const std::function<void()> waysOut[] = {
        [this] { QTest::keyClick(minute, Qt::Key_Tab); },
        [this] { QTest::mouseClick(second, Qt::LeftButton); },
        [this] { QTest::keyClick(minute, Qt::Key_Return); },
        [this] { EXPECT_FALSE(view->endEditing()); },
        [this] {
            QTest::mousePress(slider, Qt::LeftButton, {}, slider->clipRect(true).center().toPoint());
            QTest::mouseMove(slider, slider->rect().center());
            EXPECT_EQ(slider->selectionItem().dStart, 0.0) << "a drag behind the alert";
        },
    };
    for (const auto &leave : waysOut) {
        alerts = 0;
        type(minute, "99");
        leave();
        EXPECT_EQ(alerts, 1);
        box.hide();
        activate(window);
        EXPECT_TRUE(minute->hasFocus());
        EXPECT_EQ(shown(), "00 01 00");
    }
    EXPECT_THAT(told, ElementsAre());
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

TEST_F(SWTimeEditViewTest, LaysFieldsOutAndHasRoomForHundredHours)
{
    view->setParent(nullptr);
    view->resize(190, 30);
    view->show();
    EXPECT_EQ(hour->geometry(), QRect(10, 2, 50, 26));
    EXPECT_EQ(second->geometry(), QRect(130, 2, 50, 26));
    view->resize(view->minimumSizeHint());
    const QString hours = u"1000"_s; // three digits, and room around them
    EXPECT_GE(hour->width(), hour->fontMetrics().horizontalAdvance(hours));
    delete view;
}
