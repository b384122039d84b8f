// The editor by its controls: typing, clicking and sliding, and what becomes of the movies.

#include "collage/editor/KTCustomCollageWndCtl.h"

#include "Shared/PreferenceKeys.h"
#include "collage/DefaultParameters.h"
#include "collage/KTMovieObject.h"
#include "collage/editor/CollageEditorHost.h"
#include "collage/editor/KTThumbnailPreview.h"
#include "collage/editor/SWTimeEditView.h"
#include "collage/editor/SplitSliderView.h"
#include "platform/desktop/AlertPanel.h"
#include "platform/store/UserDefaults.h"
#include "platform/widgets/ColorWell.h"
#include "platform/widgets/FractionSlider.h"
#include "support/ScratchFolder.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

static std::shared_ptr<KTMovieObject> movieOf(int width, int height, double duration)
{
    auto movie = std::make_shared<KTMovieObject>();
    movie->pixWidth = width;
    movie->pixHeight = height;
    movie->duration = duration;
    movie->setSettings({.gridHeight = 168.75, .startPoint = 2.0, .endPoint = 10.0});
    return movie;
}

struct EditorTest : testing::Test, protected CollageEditorHost, protected AlertPanel {
    EditorTest()
    {
        defaults.setInteger(PreferenceKeys::metadataText, 4); // the heading has the name of the file
        alertBox.setWindowModality(Qt::WindowModal);
        openWith(0);
    }
    void openWith(std::size_t index)
    {
        editor.flushWithKTObject(movies.at(index));
        editor.open();
        activate(editor);
    }
    static void activate(QWidget &front)
    {
        front.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&front));
    }
    template<typename Control>
    Control &control(const char *name)
    {
        return *editor.findChild<Control *>(QLatin1StringView(name));
    }
    static void replaceText(QLineEdit &field, const char *text)
    {
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, QLatin1StringView(text));
    }
    QLineEdit &field(const char *name) { return control<QLineEdit>(name); }
    void type(const char *name, const char *text) { replaceText(field(name), text); }
    SWTimeEditView &endTime() { return control<SWTimeEditView>("endTimeView"); }
    QLineEdit &timePart(const char *name, const char *view = "endTimeView")
    {
        return *control<SWTimeEditView>(view).findChild<QLineEdit *>(QLatin1StringView(name));
    }
    void typeTime(const char *view, const char *seconds)
    {
        replaceText(timePart("lblSecond", view), seconds);
        QTest::keyClick(&timePart("lblSecond", view), Qt::Key_Return);
    }
    void click(const char *name) { QTest::mouseClick(&control<QWidget>(name), Qt::LeftButton); }
    void tick(const char *box) { control<QAbstractButton>(box).click(); }
    CollageSettings settings() { return editor.movieObj()->settings(); }
    std::vector<std::shared_ptr<KTMovieObject>> aryItems() const override { return movies; }
    void selectPrevMovie() override { calls += u"previous"_s; }
    void selectNextMovie() override { calls += u"next"_s; }
    void reloadData() override { calls += u"reload"_s; }
    int run(const QString & /*title*/, const QString & /*message*/, const QStringList & /*buttons*/) override
    {
        ADD_FAILURE() << "it would wait";
        return 0;
    }
    void show(const QString &title, const QString & /*message*/, const QStringList & /*buttons*/,
              std::function<void(int)> /*answered*/) override
    {
        alerts += title;
        field("lblGridRowNum").setFocus(); // nothing to ask about again
        alertBox.show();
        activate(alertBox);
    }
    void closeAlert()
    {
        alertBox.hide();
        activate(editor);
    }

    const ScratchFolder folder;
    UserDefaults defaults{folder.path("settings.json")};
    const std::vector<std::shared_ptr<KTMovieObject>> movies{movieOf(1920, 1080, 60.0), movieOf(640, 360, 7.0),
                                                             movieOf(640, 480, 0.0)};
    QStringList alerts;
    QStringList calls;
    NotificationCenter notifications;
    KTCustomCollageWndCtl editor{{.defaults = defaults, .notifications = notifications, .alert = *this, .host = *this}};
    QDialog alertBox{&editor};
};

TEST_F(EditorTest, NumbersShowLiveFromOneThresholdAndMayStayFromAnother)
{
    using Length = double CollageSettings::*;
    /// What is typed into which field; how long it makes what, 0 where it does not reach the movie; the alert.
    const std::tuple<const char *, const char *, double, Length, const char *> cases[] = {
        {"320", "lblGridWidth", 320.0, &CollageSettings::gridWidth, ""},
        {"49", "lblGridWidth", 0.0, &CollageSettings::gridWidth, ""},
        {"29", "lblGridHeight", 0.0, &CollageSettings::gridHeight, "The Grid Size must be bigger than 30 * 30"},
        {"50.9", "lblGridHeight", 50.0, &CollageSettings::gridHeight, ""},
        {"99999999999", "lblGridHeight", 2147483647.0, &CollageSettings::gridHeight, ""},
        {"-1", "lblHorizontalGaps", 0.0, &CollageSettings::columeSpace, "WrongNumberInput"},
        {"9", "lblVerticalGaps", 9.0, &CollageSettings::rowSpace, ""},
    };
    editor.movieObj()->setSettings({.gridHeight = 168.75, .autoHeight = false});
    openWith(0);
    for (const auto &[text, name, live, length, alert] : cases) {
        SCOPED_TRACE(text);
        alerts.clear();
        QLineEdit &edit = field(name);
        const QString before = edit.text();
        const double old = settings().*length;
        edit.setFocus();
        edit.selectAll();
        // At once, as from the clipboard: the digits of a number typed one by one would be live values themselves.
        edit.insert(QLatin1StringView(text));
        Q_EMIT edit.textEdited(edit.text());
        EXPECT_EQ(settings().*length, live != 0.0 ? live : old);
        QTest::keyClick(&edit, Qt::Key_Tab);
        closeAlert();
        EXPECT_EQ(alerts.join(u' ').toStdString(), alert);
        EXPECT_EQ(edit.hasFocus(), !alerts.isEmpty());
        edit.setText(before);
    }
}

TEST_F(EditorTest, NumbersCanBeSteppedAndAStepCountsAsTyping)
{
    QLineEdit &rows = field("lblGridRowNum");
    rows.setFocus();
    const auto turnWheel = [&rows](int eighths) {
        QWheelEvent event({}, rows.mapToGlobal(QPointF()), {}, {0, eighths}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&rows, &event);
    };
    QTest::keyClick(&rows, Qt::Key_Up);
    EXPECT_EQ(settings().rowNumber, 3);
    QTest::keyClick(&rows, Qt::Key_PageUp);
    EXPECT_EQ(settings().rowNumber, 13);
    turnWheel(60);
    turnWheel(60);
    EXPECT_EQ(settings().rowNumber, 14);
    QTest::keyClick(&rows, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(settings().rowNumber, 14);
    for (int page = 0; page < 3; ++page) {
        QTest::keyClick(&rows, Qt::Key_PageDown);
    }
    EXPECT_EQ(rows.text(), u"1"_s);
    field("lblGridWidth").setFocus();
    turnWheel(120);
    EXPECT_EQ(settings().rowNumber, 1) << "the pointer only passed by";
    type("lblGridWidth", "2147483647");
    QTest::mouseClick(field("lblGridWidth").findChild<QToolButton *>(), Qt::LeftButton);
    EXPECT_EQ(settings().gridWidth, 2147483647.0);
    EXPECT_EQ(alerts, QStringList());
}

TEST_F(EditorTest, ItTellsWhatDoneWillMakeAndResetTakesAllBack)
{
    const auto shown = [this](const char *name) { return control<QLabel>(name).text().toStdString(); };
    EXPECT_EQ(shown("lblCollageSize"), "editor_size_text");
    type("lblGridColumeNum", "99999");
    EXPECT_EQ(shown("lblCollageSize"), "editor_size_impossible");
    EXPECT_EQ(shown("lblNote"), "");
    typeTime("startTimeView", "5");
    EXPECT_EQ(shown("lblNote"), "editor_range_of_done") << "the end will move too";
    tick("chkApplyToAll");
    click("btnReset");
    EXPECT_EQ(settings(), DefaultParameters::settingsOfNewMovie(defaults, *movies.front()));
    EXPECT_TRUE(control<QAbstractButton>("chkApplyToAll").isChecked());
    EXPECT_EQ(shown("lblNote"), "editor_waits_for_done");
    EXPECT_EQ(calls, QStringList());
}

TEST_F(EditorTest, ARefusedNumberIsToldOnceWhateverTheUserDoesNext)
{
    QLineEdit &columns = field("lblGridColumeNum");
    const std::function<void()> ways[] = {
        [&] { click("btnDone"); },
        [&] { click("btnNext"); },
        [&] { QTest::keyClick(&columns, Qt::Key_Return); },
    };
    for (const auto &leave : ways) {
        alerts.clear();
        replaceText(columns, "abc");
        columns.setText(u"abc"_s);
        leave();
        EXPECT_EQ(alerts.size(), 1);
        closeAlert();
        EXPECT_TRUE(columns.hasFocus() && editor.isVisible());
        EXPECT_EQ(calls, QStringList());
        columns.setText(u"3"_s);
    }
    replaceText(columns, "0");
    alerts.clear();
    QTest::keyClick(&editor, Qt::Key_Escape);
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(alerts, QStringList());
}

TEST_F(EditorTest, TimesAreWholeSecondsReadFromANumberOrNothing)
{
    const auto shown = [this] {
        return QStringList{timePart("lblHour").text(), timePart("lblMinite").text(), timePart("lblSecond").text()}.join(
            u' ');
    };
    for (const auto &[seconds, fields] :
         {std::pair{3725.9, u"01 02 05"_s}, {-3725.0, u"-1 -2 -5"_s}, {1e12, u"596523 14 07"_s}}) {
        endTime().flushWithSeconds(seconds);
        EXPECT_EQ(shown(), fields);
    }
    endTime().flushWithSeconds(60.0);
    for (const auto &[text, expected] : {std::pair{"1.5", 61.5}, {"-5", 55.0}, {"5abc", 60.0}, {"nan", 60.0}}) {
        replaceText(timePart("lblSecond"), text);
        EXPECT_EQ(endTime().secondsValue(), expected);
    }
    replaceText(timePart("lblHour"), "1e308");
    EXPECT_TRUE(std::isfinite(endTime().secondsValue()));
}

TEST_F(EditorTest, EveryWayOutOfATimeKeepsItOrTakesItBackWithOneAlert)
{
    auto &range = control<SplitSliderView>("timeRangeSlidView");
    const std::function<void(QLineEdit &)> waysOut[] = {
        [](QLineEdit &from) { QTest::keyClick(&from, Qt::Key_Tab); },
        [this](QLineEdit &) { QTest::mouseClick(&timePart("lblHour"), Qt::LeftButton); },
        [](QLineEdit &from) { QTest::keyClick(&from, Qt::Key_Return); },
        [this](QLineEdit &from) { EXPECT_EQ(endTime().endEditing(), &from == &timePart("lblSecond")); },
        [&range](QLineEdit &) {
            QTest::mousePress(&range, Qt::LeftButton, {}, range.clipRect(true).center().toPoint());
            QTest::mouseMove(&range, range.rect().center());
            QTest::mouseRelease(&range, Qt::LeftButton);
        },
    };
    for (const auto &leave : waysOut) {
        alerts.clear();
        replaceText(timePart("lblSecond"), "20");
        leave(timePart("lblSecond"));
        EXPECT_EQ(settings().endPoint, 20.0);
        const double start = settings().startPoint;
        replaceText(timePart("lblMinite"), "99");
        EXPECT_EQ(alerts, QStringList());
        leave(timePart("lblMinite"));
        EXPECT_EQ(alerts.size(), 1);
        EXPECT_EQ(settings().startPoint, start) << "a drag behind the alert";
        closeAlert();
        EXPECT_TRUE(timePart("lblMinite").hasFocus());
        EXPECT_EQ(endTime().secondsValue(), 20.0);
        EXPECT_EQ(settings().endPoint, 20.0);
        endTime().flushWithSeconds(10.0);
    }
}

TEST_F(EditorTest, EditingGoesOnInAFieldThatKeepsTheFocusAndBehindOtherWindows)
{
    replaceText(timePart("lblSecond"), "20");
    ASSERT_TRUE(endTime().endEditing());
    QTest::keyClicks(&timePart("lblSecond"), u"77"_s);
    EXPECT_FALSE(endTime().endEditing());
    EXPECT_EQ(endTime().secondsValue(), 20.0) << "what the editing began with";
    closeAlert();
    alerts.clear();
    replaceText(timePart("lblMinite"), "99");
    QDialog front;
    front.show();
    activate(front);
    activate(editor);
    EXPECT_EQ(alerts, QStringList());
    EXPECT_EQ(timePart("lblMinite").text(), u"99");
    field("lblGridRowNum").setFocus();
    EXPECT_EQ(alerts.size(), 1);
    EXPECT_EQ(endTime().secondsValue(), 20.0);
}

TEST_F(EditorTest, AutomaticHeightFollowsTheWidthInWholePixels)
{
    EXPECT_FALSE(field("lblGridHeight").isEnabled());
    EXPECT_EQ(field("lblGridHeight").text(), u"168");
    EXPECT_EQ(settings().gridHeight, 168.75) << "showing a movie does not change its height";
    type("lblGridWidth", "320");
    EXPECT_EQ(field("lblGridHeight").text(), u"180");
    EXPECT_EQ(settings().gridHeight, 180.0);
    tick("chkAuto");
    EXPECT_TRUE(field("lblGridHeight").isEnabled());
    EXPECT_FALSE(settings().autoHeight);
    type("lblGridWidth", "40");
    click("btnDone");
    EXPECT_EQ(settings().gridWidth, 40.0);
    EXPECT_EQ(settings().gridHeight, 180.0);
    const QImage picture = editor.movieObj()->imgPreview();
    EXPECT_EQ(qAlpha(picture.pixel(picture.width() / 10, picture.height() / 2)), 0) << "a slim collage, as it is now";
}

TEST_F(EditorTest, WhatIsHeldOrTypedDoesNotReachTheNextMovie)
{
    auto &range = control<SplitSliderView>("timeRangeSlidView");
    auto &margin = control<FractionSlider>("slidBorderWidth");
    const QPoint knob(margin.height() / 2 + margin.value() * margin.width() / margin.maximum(), 10);
    for (const auto &[held, handle] :
         {std::pair<QWidget *, QPoint>{&range, range.clipRect(true).center().toPoint()}, {&margin, knob}}) {
        openWith(0);
        QTest::mousePress(held, Qt::LeftButton, {}, handle);
        const CollageSettings before = movies.at(1)->settings();
        editor.flushWithKTObject(movies.at(1));
        QTest::mouseMove(held, held->rect().center());
        QTest::mouseRelease(held, Qt::LeftButton, {}, held->rect().center());
        EXPECT_EQ(movies.at(1)->settings(), before) << handle.x();
    }
    QLineEdit &minutes = timePart("lblMinite");
    replaceText(minutes, "0");
    movies.at(1)->setSettings({.startPoint = 1.0, .endPoint = 6.0});
    editor.flushWithKTObject(movies.at(1));
    QTest::keyClicks(&minutes, u"99"_s);
    QTest::keyClick(&minutes, Qt::Key_Return);
    EXPECT_EQ(endTime().secondsValue(), 6.0) << "the next movie's, not the one before's";
}

TEST_F(EditorTest, ThePreviewFollowsThePreferences)
{
    const auto image = [this] { return control<KTThumbnailPreview>("thumbPreview").imageWithSubviews(); };
    const QImage before = image();
    defaults.setInteger(PreferenceKeys::metadataText, 0x3fc);
    EXPECT_EQ(image(), before) << "files are asked for their facts once";
    notifications.post(PreferenceKeys::metadataTextChanged);
    EXPECT_NE(image(), before);
    click("btnCancel");
    defaults.setInteger(PreferenceKeys::metadataText, 4);
    openWith(0);
    EXPECT_EQ(image(), before);
}

TEST_F(EditorTest, SlidersHaveFractionsUntilTheMovieIsWritten)
{
    control<FractionSlider>("slidBorderWidth").setValue(126);
    control<FractionSlider>("slidGridThickness").setValue(47);
    EXPECT_EQ(settings().borderWidth, 12.6);
    EXPECT_EQ(settings().gridBorderWidth, 4.7);
    EXPECT_EQ(field("lblBorderWidth").text(), u"12");
    click("btnDone");
    EXPECT_EQ(settings().borderWidth, 12.0);
    EXPECT_EQ(settings().gridBorderWidth, 4.0);
    openWith(1); // what is typed beyond the slider's end is not cut back to it
    type("lblBorderWidth", "5000");
    click("btnNext");
    EXPECT_EQ(settings().borderWidth, 5000.0);
}

TEST_F(EditorTest, ANewStartMovesTheRangeANewEndDoesNot)
{
    typeTime("startTimeView", "5");
    EXPECT_EQ(settings().startPoint, 5.0);
    EXPECT_EQ(settings().endPoint, 10.0);
    click("btnPrev");
    EXPECT_EQ(settings().startPoint, 5.0);
    EXPECT_EQ(settings().endPoint, 13.0);
    openWith(0);
    typeTime("endTimeView", "20");
    EXPECT_EQ(settings().endPoint, 20.0);
    EXPECT_EQ(alerts, QStringList());
    for (const auto &[view, seconds, valid] : {std::tuple{"startTimeView", "20", true},
                                               {"startTimeView", "21", false},
                                               {"startTimeView", "-1", false},
                                               {"endTimeView", "61", false}}) {
        alerts.clear();
        typeTime(view, seconds);
        EXPECT_EQ(alerts.isEmpty(), valid) << view << ' ' << seconds;
        closeAlert();
    }
}

TEST_F(EditorTest, CancelKeepsWhatHasBeenChangedButNotThePicture)
{
    control<ColorWell>("gridBorderColorWell").setColor(Qt::green);
    Q_EMIT control<ColorWell>("gridBorderColorWell").colorChosen(Qt::green);
    type("lblGridRowNum", "6");
    tick("chkShadowed");
    click("btnCancel");
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(calls, QStringList());
    EXPECT_EQ(settings().gridBorderColor, QColor(Qt::green));
    EXPECT_EQ(settings().rowNumber, 6);
    EXPECT_FALSE(settings().gridShadowed);
    EXPECT_TRUE(editor.movieObj()->imgPreview().isNull());
}

TEST_F(EditorTest, DoneReachesAllMoviesAndTheDefaultsOnlyIfAsked)
{
    type("lblHorizontalGaps", "11");
    tick("chkApplyToAll");
    tick("chkSetAsDefault");
    click("btnNext"); // these two are for Done alone
    EXPECT_EQ(movies.at(1)->settings().columeSpace, 4.0);
    editor.flushWithKTObject(movies.front()); // unticks them
    tick("chkApplyToAll");
    tick("chkSetAsDefault");
    tick("chkShadowed");
    click("btnDone");
    EXPECT_EQ(calls, (QStringList{u"next"_s, u"reload"_s}));
    for (const auto &movie : movies) {
        EXPECT_EQ(movie->settings().endPoint, 10.0);
        EXPECT_EQ(movie->settings().columeSpace, 11.0);
        EXPECT_EQ(movie->settings().gridHeight, movie->pixHeight * 300 / movie->pixWidth);
        EXPECT_EQ(movie->imgPreview().cacheKey(), movies.front()->imgPreview().cacheKey());
    }
    const UserDefaults onDisk(folder.path("settings.json"));
    const CollageSettings next = DefaultParameters::settingsOfNewMovie(onDisk, *movies.front());
    EXPECT_EQ(next.rowSpace, 11.0) << "gaps arrive crossed";
    EXPECT_EQ(next.columeSpace, 4.0);
    EXPECT_TRUE(next.gridShadowed);
}

TEST_F(EditorTest, EveryControlHasANameAndTabGoesAsOneReads)
{
    tick("chkAuto");
    control<SWTimeEditView>("startTimeView").findChild<QLineEdit *>()->setFocus();
    QStringList order;
    const auto spoken = [] {
        return QAccessible::queryAccessibleInterface(QApplication::focusWidget())->text(QAccessible::Name);
    };
    for (QString name = spoken(); !order.contains(name); name = spoken()) {
        order += name;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    // Texts are their keys here.
    EXPECT_EQ(order.join(u' ').remove(u"editor_"_s).toStdString(),
              "start, time_hours start, time_minutes start, time_seconds slider_start_handle slider_end_handle "
              "end, time_hours end, time_minutes end, time_seconds rows columns tile_width tile_height automatic "
              "horizontal_gaps vertical_gaps margin_width margin_slider background_color frame_width frame_slider "
              "frame_color shadow reset set_as_default apply_to_all previous next cancel done");
}
