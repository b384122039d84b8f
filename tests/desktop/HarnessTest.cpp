#include "desktop/DragPeer.h"
#include "desktop/ScreenReader.h"

namespace {

/// What the other tests here rely on: windows, real drags, and widgets found as a screen reader finds them.
TEST(HarnessTest, AFileIsDraggedFromOneProgramToAnother)
{
    const Desktop desktop;
    DragPeer target(desktop, QStringLiteral("Target"), {100, 100});
    const QString uri = QStringLiteral("file:///m/a%20%FF.mkv");
    DragPeer source(desktop, QStringLiteral("Source"), {700, 500}, {uri, QStringLiteral("file:///m/b")});

    const ScreenReader reader(desktop.bus.connect(), target.programId());
    const QPoint place =
        reader.await([](const ScreenReader::Object &object) { return object.name == u"Target"; }).rectangle.center();
    EXPECT_TRUE(QRect(100, 100, 200, 130).contains(place)) << place.x() << ' ' << place.y();
    source.dragTo(place);
    EXPECT_EQ(target.nextLine(), "dropped " + uri.toLatin1());
    EXPECT_EQ(target.nextLine(), "dropped file:///m/b");
}

} // namespace
