#include "platform/ColorWell.h"

#include <QColorDialog>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

static void drop(ColorWell &well, const QVariant &color)
{
    QMimeData data;
    data.setColorData(color);
    QDragEnterEvent enter(well.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&well, &enter);
    QDropEvent event(well.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    if (enter.isAccepted())
        QCoreApplication::sendEvent(&well, &event);
}

TEST(ColorWellTest, OnlyTheUsersChoiceCountsAsChosen)
{
    ColorWell well;
    const QSignalSpy chosen(&well, &ColorWell::colorChosen);
    well.setColor(Qt::red);
    drop(well, QColor(Qt::blue));
    drop(well, QColor(Qt::blue)); // no change
    drop(well, QVariant());       // no colour
    EXPECT_EQ(well.color(), QColor(Qt::blue));
    EXPECT_EQ(chosen.count(), 1);
    well.setColor(QColor());
    EXPECT_EQ(well.color(), QColor(Qt::black));
}

TEST(ColorWellTest, DialogShowsItsChoiceAtOnceAndTakesItBackOnCancel)
{
    ColorWell well;
    well.show();
    const QColor before(10, 20, 30, 40);
    const QColor after(200, 20, 30, 99);
    well.setColor(before);
    for (const bool accepted : {false, true}) {
        QTest::keyClick(&well, Qt::Key_Space);
        auto &dialog = *well.findChild<QColorDialog *>();
        EXPECT_EQ(dialog.currentColor(), before);
        dialog.setCurrentColor(after);
        EXPECT_EQ(well.color(), after);
        static_cast<QDialog &>(dialog).done(accepted ? QDialog::Accepted : QDialog::Rejected);
        EXPECT_EQ(well.color(), accepted ? after : before);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
