// The editor by its controls: typing, clicking and sliding, and what becomes of the movies.

#include "collage/KTCustomCollageWndCtl.h"

#include "collage/CollageEditorHost.h"
#include "collage/DefaultParameters.h"
#include "collage/KTMovieObject.h"
#include "collage/SWTimeEditView.h"
#include "collage/SplitSliderView.h"
#include "platform/AlertPanel.h"
#include "platform/ColorWell.h"
#include "platform/FractionSlider.h"
#include "platform/UserDefaults.h"
#include "support/ScratchFolder.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

std::shared_ptr<KTMovieObject> movieOf(int width, int height, double duration)
{
    auto movie = std::make_shared<KTMovieObject>();
    movie->filePath = QStringLiteral("/movies/holiday.mkv");
    movie->pixWidth = width;
    movie->pixHeight = height;
    movie->duration = duration;
    CollageSettings settings;
    settings.startPoint = 2.0;
    settings.endPoint = 10.0;
    settings.gridHeight = 168.75;
    movie->setSettings(settings);
    return movie;
}

class EditorTest : public testing::Test, protected CollageEditorHost, protected AlertPanel {
protected:
    EditorTest()
    {
        movies = {movieOf(1920, 1080, 60.0), movieOf(640, 360, 7.0), movieOf(640, 480, 0.0)};
        openWith(0);
    }

    void openWith(std::size_t index)
    {
        editor.flushWithKTObject(movies.at(index));
        editor.open();
        QApplication::setActiveWindow(&editor);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&editor));
    }
    template<typename Control>
    Control &control(const QString &name)
    {
        auto *found = editor.findChild<Control *>(name);
        if (found == nullptr)
            qFatal("no control %s", qPrintable(name));
        return *found;
    }
    void type(const QString &field, const char *text)
    {
        auto &edit = control<QLineEdit>(field);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, QString::fromUtf8(text));
    }
    void typeTime(const QString &view, const QString &seconds)
    {
        auto &edit = *control<SWTimeEditView>(view).findChild<QLineEdit *>(QStringLiteral("lblSecond"));
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, seconds);
        QTest::keyClick(&edit, Qt::Key_Return);
    }
    void click(const QString &button) { QTest::mouseClick(&control<QAbstractButton>(button), Qt::LeftButton); }
    void tick(const QString &box) { control<QAbstractButton>(box).click(); }
    CollageSettings settings() { return editor.movieObj()->settings(); }

    std::vector<std::shared_ptr<KTMovieObject>> aryItems() const override { return movies; }
    void selectPrevMovie() override { calls += u"previous"_qs; }
    void selectNextMovie() override { calls += u"next"_qs; }
    void reloadData() override { calls += u"reload"_qs; }
    int run(const QString &title, const QString &message, const QStringList & /*buttons*/) override
    {
        alerts += title + message;
        return 0;
    }

    const ScratchFolder folder;
    UserDefaults defaults{folder.path("store.ini")};
    std::vector<std::shared_ptr<KTMovieObject>> movies;
    QStringList alerts;
    QStringList calls;
    KTCustomCollageWndCtl editor{{defaults, *this, *this, [](const KTMovieObject &) { return QString(); }}};
};

TEST_F(EditorTest, NumbersShowLiveFromOneThresholdAndMayStayFromAnother)
{
    struct Case {
        const char *field;
        const char *text;
        double CollageSettings::*length;
        double live; ///< 0 where the typed number does not reach the movie
        const char *alert;
    };
    const char *tooSmall = "The Grid Size must be bigger than 30 * 30";
    editor.movieObj()->setSettings(CollageSettings{.gridHeight = 168.75, .autoHeight = false});
    openWith(0);
    for (const Case &each : {Case{"lblGridWidth", "320", &CollageSettings::gridWidth, 320.0, ""},
                             {"lblGridWidth", "49", &CollageSettings::gridWidth, 0.0, ""},
                             {"lblGridWidth", "30", &CollageSettings::gridWidth, 0.0, ""},
                             {"lblGridHeight", "29", &CollageSettings::gridHeight, 0.0, tooSmall},
                             {"lblGridHeight", "50.9", &CollageSettings::gridHeight, 50.0, ""},
                             {"lblGridHeight", "99999999999", &CollageSettings::gridHeight, 2147483647.0, ""},
                             {"lblHorizontalGaps", "7", &CollageSettings::columeSpace, 7.0, ""},
                             {"lblHorizontalGaps", "-1", &CollageSettings::columeSpace, 0.0, "WrongNumberInput"},
                             {"lblVerticalGaps", "9", &CollageSettings::rowSpace, 9.0, ""},
                             {"lblGridThickness", "-1", &CollageSettings::gridBorderWidth, 0.0, "WrongNumberInput"},
                             {"lblBorderWidth", "400", &CollageSettings::borderWidth, 400.0, ""}}) {
        SCOPED_TRACE(std::string(each.field) + ' ' + each.text);
        alerts.clear();
        QLineEdit &field = control<QLineEdit>(QLatin1StringView(each.field));
        const QString before = field.text();
        const double old = settings().*each.length;
        field.setFocus();
        field.selectAll();
        // At once, as from the clipboard: the digits of a number typed one by one would be live values themselves.
        field.insert(QLatin1StringView(each.text));
        Q_EMIT field.textEdited(field.text());
        EXPECT_EQ(settings().*each.length, each.live != 0.0 ? each.live : old);
        QTest::keyClick(&field, Qt::Key_Tab);
        EXPECT_EQ(alerts.join(u' ').toStdString(), each.alert);
        EXPECT_EQ(field.hasFocus(), !alerts.isEmpty());
        field.setText(before);
    }
}

TEST_F(EditorTest, ARefusedNumberIsToldOnceWhateverTheUserDoesNext)
{
    for (const char *wrong : {"0", "", "abc", "-2"}) {
        for (const QString &way : {u"btnDone"_qs, u"btnNext"_qs, u"lblGridWidth"_qs, u"Return"_qs, u"Tab"_qs}) {
            SCOPED_TRACE(std::string(wrong) + ' ' + way.toStdString());
            alerts.clear();
            type(QStringLiteral("lblGridColumeNum"), wrong);
            auto &field = control<QLineEdit>(QStringLiteral("lblGridColumeNum"));
            field.setText(QLatin1StringView(wrong));
            if (way == u"Return" || way == u"Tab")
                QTest::keyClick(&field, way == u"Tab" ? Qt::Key_Tab : Qt::Key_Return);
            else
                QTest::mouseClick(&control<QWidget>(way), Qt::LeftButton);
            EXPECT_EQ(alerts.size(), 1);
            EXPECT_TRUE(field.hasFocus());
            EXPECT_TRUE(editor.isVisible());
            EXPECT_EQ(calls, QStringList());
            field.setText(QStringLiteral("3"));
        }
    }
    type(QStringLiteral("lblGridColumeNum"), "0");
    alerts.clear();
    QTest::keyClick(&editor, Qt::Key_Escape);
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(alerts, QStringList());
}

TEST_F(EditorTest, AutomaticHeightFollowsTheWidthInWholePixels)
{
    EXPECT_FALSE(control<QLineEdit>(QStringLiteral("lblGridHeight")).isEnabled());
    EXPECT_EQ(control<QLineEdit>(QStringLiteral("lblGridHeight")).text(), u"168");
    EXPECT_EQ(settings().gridHeight, 168.75) << "showing a movie does not change its height";
    type(QStringLiteral("lblGridWidth"), "320");
    EXPECT_EQ(control<QLineEdit>(QStringLiteral("lblGridHeight")).text(), u"180");
    EXPECT_EQ(settings().gridHeight, 180.0);
    tick(QStringLiteral("chkAuto"));
    EXPECT_TRUE(control<QLineEdit>(QStringLiteral("lblGridHeight")).isEnabled());
    EXPECT_FALSE(settings().autoHeight);
    type(QStringLiteral("lblGridWidth"), "40");
    click(QStringLiteral("btnDone"));
    EXPECT_EQ(settings().gridWidth, 40.0);
    EXPECT_EQ(settings().gridHeight, 180.0);
}

TEST_F(EditorTest, SlidersHaveFractionsUntilTheMovieIsWritten)
{
    control<FractionSlider>(QStringLiteral("slidBorderWidth")).setValue(126);
    control<FractionSlider>(QStringLiteral("slidGridThickness")).setValue(47);
    EXPECT_EQ(settings().borderWidth, 12.6);
    EXPECT_EQ(settings().gridBorderWidth, 4.7);
    EXPECT_EQ(control<QLineEdit>(QStringLiteral("lblBorderWidth")).text(), u"12");
    click(QStringLiteral("btnDone"));
    EXPECT_EQ(settings().borderWidth, 12.0);
    EXPECT_EQ(settings().gridBorderWidth, 4.0);

    openWith(1); // what is typed beyond the slider's end is not cut back to it
    type(QStringLiteral("lblBorderWidth"), "5000");
    click(QStringLiteral("btnNext"));
    EXPECT_EQ(settings().borderWidth, 5000.0);
}

TEST_F(EditorTest, ANewStartMovesTheRangeANewEndDoesNot)
{
    typeTime(QStringLiteral("startTimeView"), QStringLiteral("5"));
    EXPECT_EQ(settings().startPoint, 5.0);
    EXPECT_EQ(settings().endPoint, 10.0);
    click(QStringLiteral("btnPrev"));
    EXPECT_EQ(settings().startPoint, 5.0);
    EXPECT_EQ(settings().endPoint, 13.0);
    openWith(0);
    typeTime(QStringLiteral("endTimeView"), QStringLiteral("20"));
    EXPECT_EQ(settings().endPoint, 20.0);
    EXPECT_EQ(alerts, QStringList());

    for (const auto &[view, seconds, valid] : {std::tuple{u"startTimeView"_qs, u"20"_qs, true},
                                               {u"startTimeView"_qs, u"21"_qs, false},
                                               {u"startTimeView"_qs, u"-1"_qs, false},
                                               {u"endTimeView"_qs, u"61"_qs, false},
                                               {u"endTimeView"_qs, u"60"_qs, true}}) {
        alerts.clear();
        const double before = control<SWTimeEditView>(view).secondsValue();
        typeTime(view, seconds);
        EXPECT_EQ(alerts.isEmpty(), valid) << view.toStdString() << ' ' << seconds.toStdString();
        EXPECT_EQ(control<SWTimeEditView>(view).secondsValue(), valid ? seconds.toDouble() : before);
    }
}

TEST_F(EditorTest, AHandleMovesBothTimesAndMayReachPastAShortMovie)
{
    openWith(2);
    auto &slider = control<SplitSliderView>(QStringLiteral("timeRangeSlidView"));
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(1, 1));
    slider.moveClip(false, 0.0);
    EXPECT_EQ(settings().endPoint, settings().startPoint + 5.0);
    EXPECT_EQ(control<SWTimeEditView>(QStringLiteral("endTimeView")).secondsValue(), settings().endPoint);
}

TEST_F(EditorTest, CancelKeepsWhatHasBeenChangedButNotThePicture)
{
    Q_EMIT control<ColorWell>(QStringLiteral("bgColorWell")).colorChosen(Qt::red);
    control<ColorWell>(QStringLiteral("gridBorderColorWell")).setColor(Qt::green);
    Q_EMIT control<ColorWell>(QStringLiteral("gridBorderColorWell")).colorChosen(Qt::green);
    type(QStringLiteral("lblGridRowNum"), "6");
    tick(QStringLiteral("chkShadowed"));
    click(QStringLiteral("btnCancel"));
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(calls, QStringList());
    EXPECT_EQ(settings().gridBorderColor, QColor(Qt::green));
    EXPECT_EQ(settings().rowNumber, 6);
    EXPECT_FALSE(settings().gridShadowed);
    EXPECT_TRUE(editor.movieObj()->imgPreview().isNull());
}

TEST_F(EditorTest, DoneReachesAllMoviesAndTheDefaultsOnlyIfAsked)
{
    type(QStringLiteral("lblHorizontalGaps"), "11");
    tick(QStringLiteral("chkApplyToAll"));
    tick(QStringLiteral("chkSetAsDefault"));
    click(QStringLiteral("btnNext")); // these two are for Done alone
    EXPECT_EQ(movies.at(1)->settings().columeSpace, 4.0);
    editor.flushWithKTObject(movies.front());
    EXPECT_FALSE(control<QCheckBox>(QStringLiteral("chkApplyToAll")).isChecked());
    EXPECT_FALSE(control<QCheckBox>(QStringLiteral("chkSetAsDefault")).isChecked());

    tick(QStringLiteral("chkApplyToAll"));
    tick(QStringLiteral("chkSetAsDefault"));
    tick(QStringLiteral("chkShadowed"));
    click(QStringLiteral("btnDone"));
    EXPECT_EQ(calls, (QStringList{u"next"_qs, u"reload"_qs}));
    for (const auto &movie : movies) {
        EXPECT_EQ(movie->settings().endPoint, 10.0);
        EXPECT_EQ(movie->settings().columeSpace, 11.0);
        EXPECT_EQ(movie->settings().gridHeight, movie->pixHeight * 300 / movie->pixWidth);
        EXPECT_EQ(movie->imgPreview().cacheKey(), movies.front()->imgPreview().cacheKey());
    }
    const UserDefaults onDisk(folder.path("store.ini"));
    const CollageSettings next = DefaultParameters::settingsOfNewMovie(onDisk, *movies.front());
    EXPECT_EQ(next.rowSpace, 11.0) << "gaps arrive crossed";
    EXPECT_EQ(next.columeSpace, 4.0);
    EXPECT_EQ(next.borderWidth, 20.0);
    EXPECT_EQ(next.gridBorderColor, QColor(Qt::yellow));
    EXPECT_TRUE(next.gridShadowed);
}

TEST_F(EditorTest, EveryControlHasANameAndTabGoesAsOneReads)
{
    tick(QStringLiteral("chkAuto"));
    control<SWTimeEditView>(QStringLiteral("startTimeView")).findChild<QLineEdit *>()->setFocus();
    QStringList order;
    const auto spoken = [] {
        return QAccessible::queryAccessibleInterface(QApplication::focusWidget())->text(QAccessible::Name);
    };
    for (QString name = spoken(); !order.contains(name); name = spoken()) {
        order += name;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    // Texts are their keys here.
    EXPECT_EQ(order.join(u' ').remove(QStringLiteral("editor_")).toStdString(),
              "start, time_hours start, time_minutes start, time_seconds slider_start_handle slider_end_handle "
              "end, time_hours end, time_minutes end, time_seconds rows columns tile_width tile_height automatic "
              "horizontal_gaps vertical_gaps margin_width margin_slider background_color frame_width frame_slider "
              "frame_color shadow set_as_default apply_to_all previous next cancel done");
}

} // namespace
