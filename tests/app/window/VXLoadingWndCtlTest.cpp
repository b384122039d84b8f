#include "app/window/VXLoadingWndCtl.h"

#include "platform/threads/NotificationCenter.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

TEST(VXLoadingWndCtl, TextsOfAnyLengthMoveNothingAndAreGoneForTheNextJob)
{
    NotificationCenter center;
    QWidget window;
    window.resize(900, 600);
    window.show();
    VXLoadingWndCtl sheet(center, &window);
    const auto label = [&sheet](const char *name) { return sheet.findChild<QLabel *>(QLatin1StringView(name)); };
    sheet.startLoading(QString(), &window);
    const QPoint place = label("lblSaveProgress")->pos();
    const QRect frame = sheet.geometry();
    sheet.updateProgress(std::nan(""), u"main "_s.repeated(200), u"/dir"_s.repeated(500), {});
    sheet.setRemaining(u"1 hour remaining"_s);
    QCoreApplication::processEvents();
    EXPECT_GE(label("lblRemaining")->width(), label("lblRemaining")->sizeHint().width());
    EXPECT_EQ(label("lblSaveProgress")->pos(), place);
    EXPECT_EQ(sheet.geometry(), frame);
    sheet.endLoading();
    sheet.updateProgress(0.5, QString(), u"comes too late"_s, {});
    sheet.startLoading(u"again"_s, &window);
    EXPECT_EQ(label("lblPrgTip")->text(), u"again");
    EXPECT_EQ(label("lblSaveProgress")->text(), QString());
    EXPECT_EQ(sheet.findChild<QProgressBar *>()->value(), 0);
}
