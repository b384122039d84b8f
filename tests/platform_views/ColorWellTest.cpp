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
    QColorDialog &openDialog()
    {
        QTest::keyClick(&well, Qt::Key_Space);
        return *well.findChild<QColorDialog *>();
    }
    void drop(const QVariant &color)
    {
        QMimeData data;
        data.setColorData(color);
        QDragEnterEvent enter(well.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&well, &enter);
        QDropEvent event(well.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        if (enter.isAccepted())
            QCoreApplication::sendEvent(&well, &event);
    }

    ColorWell well;
    const QSignalSpy changed{&well, &ColorWell::colorChanged};
    const QSignalSpy chosen{&well, &ColorWell::colorChosen};
};

TEST_F(ColorWellTest, OnlyTheUsersChoiceCountsAsChosen)
{
    well.setColor(Qt::red);
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
    well.show();
    const QColor before(10, 20, 30, 40);
    const QColor after(200, 20, 30, 99);
    well.setColor(before);
    for (const bool accepted : {false, true}) {
        QColorDialog &dialog = openDialog();
        EXPECT_EQ(dialog.currentColor(), before);
        dialog.setCurrentColor(after);
        EXPECT_EQ(well.color(), after);
        static_cast<QDialog &>(dialog).done(accepted ? QDialog::Accepted : QDialog::Rejected);
        EXPECT_EQ(well.color(), accepted ? after : before);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

} // namespace
