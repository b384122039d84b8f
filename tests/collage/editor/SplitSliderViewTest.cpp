#include "collage/editor/SplitSliderView.h"

#include "collage/editor/SliderViewDelegate.h"

#include <QAccessible>
#include <QTest>

#include <gmock/gmock.h>

#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

using testing::ElementsAre;

/// Writes down the calls for the handles: '<' or '>', and the selection as it was then.
struct SplitSliderViewTest : testing::Test, protected SliderViewDelegate {
    SplitSliderViewTest()
    {
        slider.resize(320, 36); // the track is 300 wide
        slider.setDLength(100.0);
        slider.setDelegate(this);
        slider.show();
        slider.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&slider));
    }
    void splitSliderViewBeginDragClip(SplitSliderView & /*slider*/, bool isLeft) override { note(u"begin", isLeft); }
    void splitSliderViewDragClipTo(SplitSliderView & /*slider*/, bool isLeft) override { note(u"drag", isLeft); }
    void splitSliderViewEndDragClip(SplitSliderView & /*slider*/, bool isLeft) override { note(u"end", isLeft); }
    void note(QStringView call, bool isLeft)
    {
        const SliderSelectionItem &item = slider.selectionItem();
        const QString text = u"%1%2%3-%4"_s.arg(call, isLeft ? u"<" : u">").arg(item.dStart).arg(item.end());
        calls.push_back(text.toStdString());
    }
    std::vector<std::string> take() { return std::exchange(calls, {}); }
    void select(double start, double length)
    {
        slider.setSelection(start, length);
        slider.grab(); // a press means what is drawn
    }
    QPoint grip(bool ofLeft) const { return slider.clipRect(ofLeft).center().toPoint(); }
    static QPoint by(double seconds) { return {qRound(seconds * 3.0), 0}; }
    void move(QPoint point, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        QMouseEvent event(QEvent::MouseMove, point, slider.mapToGlobal(point), Qt::NoButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&slider, &event);
    }
    QImage drawn() { return slider.grab().toImage(); }

    SplitSliderView slider;
    std::vector<std::string> calls;
    QWidget *const left = slider.findChild<QWidget *>(u"leftClip"_s);
    QWidget *const right = slider.findChild<QWidget *>(u"rightClip"_s);
};

TEST_F(SplitSliderViewTest, HandlesMoveTheirEdgeAndKeepTheMinimum)
{
    const struct {
        double start, length;
        bool left;
        double move;
        std::vector<std::string> calls;
    } cases[] = {
        {10, 30, true, 28, {"begin<10-40", "drag<35-40", "end<35-40"}},
        {10, 30, true, -500, {"begin<10-40", "drag<0-40", "end<0-40"}},
        {10, 30, false, -28, {"begin>10-40", "drag>10-15", "end>10-15"}},
        {10, 30, false, 500, {"begin>10-40", "drag>10-100", "end>10-100"}},
        {98, 2, false, 0, {"begin>98-103", "drag>98-103", "end>98-103"}}, // past the end
        {50, 0, true, -10, {"begin<45-50", "drag<40-50", "end<40-50"}},
    };
    for (const auto &[start, length, isLeft, seconds, expected] : cases) {
        SCOPED_TRACE(testing::Message() << start << " + " << length << ", by " << seconds);
        select(start, length);
        const QPoint at = grip(isLeft);
        QTest::mousePress(&slider, Qt::LeftButton, {}, at);
        move(at + by(seconds));
        QTest::mouseRelease(&slider, Qt::LeftButton, {}, at + by(1000));
        EXPECT_EQ(take(), expected);
    }
    slider.setDLength(3.0);
    select(0.0, 3.0);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, grip(false));
    EXPECT_THAT(take(), ElementsAre("begin>0-5", "end>0-5"));
}

TEST_F(SplitSliderViewTest, OnlyTheLeftButtonDragsAndADragAlwaysEnds)
{
    select(10.0, 30.0);
    const QPoint at = grip(true);
    QTest::mouseClick(&slider, Qt::RightButton, {}, at);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, slider.rect().center());
    EXPECT_THAT(take(), ElementsAre());
    QTest::mousePress(&slider, Qt::LeftButton, {}, at);
    QTest::mousePress(&slider, Qt::RightButton, {}, grip(false));
    QTest::mouseRelease(&slider, Qt::RightButton, {}, grip(false));
    move(at + by(10), Qt::LeftButton | Qt::RightButton);
    QTest::keyClick(right, Qt::Key_Home);
    move(at, Qt::NoButton); // the release has gone elsewhere
    EXPECT_THAT(take(), ElementsAre("begin<10-40", "drag<20-40", "end<20-40"));
    select(10.0, 30.0);
    QTest::mousePress(&slider, Qt::LeftButton, {}, at);
    slider.hide();
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, at);
    EXPECT_THAT(take(), ElementsAre("begin<10-40", "end<10-40"));
}

TEST_F(SplitSliderViewTest, KeysAndScreenReadersMoveTheHandleThatHasTheFocus)
{
    const std::tuple<Qt::Key, const char *, const char *> cases[] = {
        {Qt::Key_Left, "<19-60", ">20-59"},     {Qt::Key_Up, "<21-60", ">20-61"},  {Qt::Key_PageUp, "<30-60", ">20-70"},
        {Qt::Key_PageDown, "<10-60", ">20-50"}, {Qt::Key_Home, "<0-60", ">20-25"}, {Qt::Key_End, "<55-60", ">20-100"},
    };
    for (const auto &[key, movedLeft, movedRight] : cases) {
        for (const auto &[handle, moved] : {std::pair{left, std::string(movedLeft)}, {right, movedRight}}) {
            select(20.0, 40.0);
            QTest::keyClick(handle, key);
            EXPECT_THAT(take(), ElementsAre("begin" + moved, "drag" + moved, "end" + moved));
        }
    }
    select(20.0, 3600.0);
    QAccessibleInterface *const end = QAccessible::queryAccessibleInterface(right);
    EXPECT_EQ(end->text(QAccessible::Value), u"01:00:20");
    end->valueInterface()->setCurrentValue(70.0);
    EXPECT_THAT(take(), ElementsAre("begin>20-70", "drag>20-70", "end>20-70"));
}

TEST_F(SplitSliderViewTest, ShowsTheSelectionAndTheHandleThatHasTheFocus)
{
    select(20.0, 40.0);
    left->setFocus();
    const QImage leftFocused = drawn();
    for (const auto &[x, isSelected] : {std::pair{69, false}, {72, true}, {187, true}, {191, false}}) {
        EXPECT_EQ(leftFocused.pixelColor(x, 23) == slider.palette().color(QPalette::Highlight), isSelected) << x;
    }
    right->setFocus();
    EXPECT_NE(drawn(), leftFocused);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, grip(true));
    EXPECT_EQ(drawn(), leftFocused);
}

TEST_F(SplitSliderViewTest, NoNumbersAndNoSizeBreakIt)
{
    const double odd[] = {0.0, -1e308, 1e308, 360000.0, NAN, INFINITY};
    const QSize sizes[] = {{320, 36}, {15, 3}, {0, 0}};
    for (int round = 0; round < 3 * 36; ++round) {
        const double start = odd[round / 6 % 6];
        const double length = odd[round % 6];
        slider.resize(sizes[round / 36]);
        slider.setDMinValue(start);
        slider.setDLength(length);
        select(start, length);
        EXPECT_TRUE(std::isfinite(slider.curProgressWithXValue(slider.curXValueWithProgress(start))));
        slider.moveClip(true, start);
        QTest::mouseClick(&slider, Qt::LeftButton, {}, grip(true));
        QTest::mouseClick(&slider, Qt::LeftButton, {}, grip(false));
    }
}
