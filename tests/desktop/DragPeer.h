#pragma once

#include "desktop/Desktop.h"

#include <gtest/gtest.h>

/// A window on the desktop that files can be dragged from, or dropped on: a program of its own.
class DragPeer {
public:
    /// Without addresses it takes drops.
    DragPeer(const Desktop &aDesktop, const QString &title, QPoint place, const QStringList &uris = {}) :
        desktop(aDesktop), center(place + QPoint(100, 50))
    {
        const QStringList arguments{title, QString::number(place.x()), QString::number(place.y())};
        desktop.start(program, QStringLiteral(TESSARINE_DRAG_WINDOW), arguments + uris);
        desktop.awaitWindow(title);
    }
    ~DragPeer()
    {
        program.terminate();
        program.waitForFinished();
    }
    DragPeer(const DragPeer &) = delete;
    DragPeer &operator=(const DragPeer &) = delete;

    /// Drags the files from the window to the point, and lets go there as soon as they are welcome.
    void dragTo(QPoint point)
    {
        desktop.pressButton(center);
        desktop.movePointer(center + QPoint(20, 20));
        desktop.movePointer(point - QPoint(5, 5));
        desktop.movePointer(point);
        EXPECT_EQ(nextLine(), "accepted");
        desktop.releaseButton();
        EXPECT_EQ(nextLine(), "given");
    }

    /// What the window says next.
    QByteArray nextLine()
    {
        while (!program.canReadLine() && program.waitForReadyRead()) {
        }
        return program.readLine().trimmed();
    }

    qint64 programId() const { return program.processId(); }

private:
    const Desktop &desktop;
    QPoint center;
    QProcess program;
};
