#include "app/window/VXLoadingWndCtl.h"

#include "platform/threads/NotificationCenter.h"

#include <QLabel>
#include <QProgressBar>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

struct VXLoadingWndCtlTest : testing::Test {
    VXLoadingWndCtlTest()
    {
        window.resize(900, 600);
        window.show();
        picture.fill(Qt::red);
    }
    template<typename Widget>
    Widget *find(const char *name)
    {
        return sheet.findChild<Widget *>(QLatin1StringView(name));
    }
    QString text(const char *label) { return find<QLabel>(label)->text(); }
    double progress()
    {
        const auto *bar = find<QProgressBar>("prgSaving");
        return static_cast<double>(bar->value()) / bar->maximum();
    }

    NotificationCenter center;
    QWidget window;
    VXLoadingWndCtl sheet{center, &window};
    QImage picture{640, 360, QImage::Format_RGB32};
};

TEST_F(VXLoadingWndCtlTest, AJobOpensFillsAndClosesIt)
{
    const QString file = u"/films/holiday.mkv"_s;
    sheet.startLoading(u"Loading..."_s, &window);
    EXPECT_TRUE(sheet.isVisible());
    for (const auto &[given, shown] : {std::pair(0.25, 0.25), {-1.0, 0.0}, {std::nan(""), 0.0}, {1e300, 1.0}}) {
        sheet.updateProgress(given, u"Loading 2 of 8"_s, file, picture);
        EXPECT_DOUBLE_EQ(progress(), shown) << given;
    }
    EXPECT_EQ(text("lblPrgTip") + text("lblSaveProgress"), u"Loading 2 of 8" + file);
    const QPixmap shown = find<QLabel>("imageView")->pixmap();
    EXPECT_NEAR(static_cast<double>(shown.width()) / shown.height(), 16.0 / 9.0, 0.03);
    sheet.endLoading();
    EXPECT_FALSE(sheet.isVisible());
    sheet.updateProgress(0.5, QString(), file, {}); // comes too late
    sheet.startLoading(u"again"_s, &window);
    EXPECT_EQ(text("lblPrgTip") + text("lblSaveProgress"), u"again");
    EXPECT_DOUBLE_EQ(progress(), 0.0);
}

TEST_F(VXLoadingWndCtlTest, TextsOfAnyLengthMoveNothing)
{
    sheet.startLoading(QString(), &window);
    const QRect before = find<QWidget>("lblSaveProgress")->geometry();
    const QRect frame = sheet.geometry();
    sheet.updateProgress(0.5, u"main "_s.repeated(200), u"/dir"_s.repeated(500), picture);
    sheet.setRemaining(u"1 hour remaining"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(find<QWidget>("lblSaveProgress")->geometry().topLeft(), before.topLeft());
    EXPECT_EQ(sheet.geometry(), frame);
    const auto *remaining = find<QLabel>("lblRemaining");
    EXPECT_GE(remaining->width(), remaining->sizeHint().width());
}
