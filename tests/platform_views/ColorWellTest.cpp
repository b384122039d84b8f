#include "platform/ColorWell.h"

#include <QColorDialog>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class ColorWellTest : public testing::Test {
protected:
    ColorWellTest()
    {
        well.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&well));
    }
    QColorDialog *openDialog()
    {
        QTest::keyClick(&well, Qt::Key_Space);
        return well.findChild<QColorDialog *>();
    }
    void drop(const QVariant &color)
    {
        QMimeData data;
        data.setColorData(color);
        QDragEnterEvent enter(well.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&well, &enter);
        if (enter.isAccepted()) {
            QDropEvent event(well.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&well, &event);
        }
    }

    ColorWell well;
    const QSignalSpy changed{&well, &ColorWell::colorChanged};
    const QSignalSpy chosen{&well, &ColorWell::colorChosen};
};

TEST_F(ColorWellTest, OnlyTheUsersChoiceCountsAsChosen)
{
    well.setColor(Qt::red);
    EXPECT_EQ(well.accessibleDescription(), u"#ffff0000");
    drop(QColor(Qt::blue));
    EXPECT_EQ(well.color(), QColor(Qt::blue));
    drop(QColor(Qt::blue)); // no change
    drop(QVariant());       // no colour
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(chosen.count(), 1);
    well.setColor(QColor());
    EXPECT_EQ(well.color(), QColor(Qt::black));
}

TEST_F(ColorWellTest, DialogShowsItsChoiceAtOnceAndTakesItBackOnCancel)
{
    const QColor before(10, 20, 30, 40);
    well.setColor(before);
    QColorDialog *dialog = openDialog();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->currentColor(), before) << "the alpha too";
    dialog->setCurrentColor(QColor(200, 20, 30, 99));
    EXPECT_EQ(well.color(), QColor(200, 20, 30, 99));
    dialog->reject();
    EXPECT_EQ(well.color(), before);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    dialog = openDialog();
    ASSERT_NE(dialog, nullptr);
    dialog->setCurrentColor(Qt::green);
    dialog->accept();
    EXPECT_EQ(well.color(), QColor(Qt::green));
}

TEST_F(ColorWellTest, ColourIsSeenOverACheckerboardWhereItIsTransparent)
{
    well.resize(60, 40);
    well.setColor(Qt::red);
    EXPECT_EQ(well.grab().toImage().pixelColor(30, 20), QColor(Qt::red));
    well.setColor(Qt::transparent);
    const QImage image = well.grab().toImage();
    EXPECT_NE(image.pixelColor(30, 20), image.pixelColor(34, 20));
}

} // namespace
