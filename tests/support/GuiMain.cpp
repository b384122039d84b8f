// Entry of the test programs that read or draw images: text needs fonts, and image plug-ins that a thread has loaded
// need an application object to end in order.

#include <QGuiApplication>

#include <gmock/gmock.h>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
