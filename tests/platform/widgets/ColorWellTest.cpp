#include "platform/widgets/ColorWell.h"

#include <QColorDialog>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

TEST(ColorWellTest, DialogShowsItsChoiceAtOnceAndTakesItBackOnCancel)
{
    ColorWell well;
    well.show();
    const QSignalSpy chosen(&well, &ColorWell::colorChosen);
    const QColor before(10, 20, 30, 40);
    const QColor after(200, 20, 30, 99);
    well.setColor(before);
    EXPECT_EQ(chosen.count(), 0) << "not the user's choice";
    for (const bool accepted : {false, true}) {
        QTest::keyClick(&well, Qt::Key_Space);
        auto &dialog = *well.findChild<QColorDialog *>();
        EXPECT_EQ(dialog.currentColor(), before);
        dialog.setCurrentColor(after);
        EXPECT_EQ(well.color(), after);
        EXPECT_EQ(chosen.last().first().value<QColor>(), after);
        static_cast<QDialog &>(dialog).done(accepted ? QDialog::Accepted : QDialog::Rejected);
        EXPECT_EQ(well.color(), accepted ? after : before);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
