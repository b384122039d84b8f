#include "app/window/VXLoadingWndCtl.h"

#include "platform/threads/NotificationCenter.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

TEST(VXLoadingWndCtl, ShowsAnyProgressOfAJobAndIsEmptyForTheNext)
{
    NotificationCenter center;
    QWidget window;
    window.resize(900, 600);
    window.show();
    VXLoadingWndCtl sheet(center, &window);
    const auto label = [&sheet](const char *name) { return sheet.findChild<QLabel *>(QLatin1StringView(name)); };
    const auto texts = [&label]() -> QString { return label("lblPrgTip")->text() + label("lblSaveProgress")->text(); };
    const auto *bar = sheet.findChild<QProgressBar *>();
    QImage picture(640, 360, QImage::Format_RGB32);
    picture.fill(Qt::red);

    sheet.startLoading(QString(), &window);
    const QPoint place = label("lblSaveProgress")->pos();
    const QRect frame = sheet.geometry();
    const QString main = u"main "_s.repeated(200);
    const QString path = u"/dir"_s.repeated(500);
    for (const auto &[given, shown] : {std::pair(0.25, 0.25), {-1.0, 0.0}, {std::nan(""), 0.0}, {1e300, 1.0}}) {
        sheet.updateProgress(given, main, path, picture);
        EXPECT_EQ(bar->value(), qRound(shown * bar->maximum())) << given;
    }
    EXPECT_EQ(texts(), main + path);
    sheet.setRemaining(u"1 hour remaining"_s);
    QCoreApplication::processEvents();
    EXPECT_GE(label("lblRemaining")->width(), label("lblRemaining")->sizeHint().width());
    EXPECT_EQ(label("lblSaveProgress")->pos(), place) << "texts of any length move nothing";
    EXPECT_EQ(sheet.geometry(), frame);
    const QSizeF shown = label("imageView")->pixmap().size();
    EXPECT_NEAR(shown.width() / shown.height(), 16.0 / 9.0, 0.03);

    sheet.endLoading();
    EXPECT_FALSE(sheet.isVisible());
    sheet.updateProgress(0.5, QString(), path, {}); // comes too late
    sheet.startLoading(u"again"_s, &window);
    EXPECT_EQ(texts(), u"again");
    EXPECT_EQ(bar->value(), 0);
}
