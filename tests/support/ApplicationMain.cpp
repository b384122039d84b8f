// Entry of the test programs with text, images, an event loop or widgets. Text needs fonts, and image plug-ins that a
// thread has loaded need an application object to end in order.
#if __has_include(<QApplication>) // links widgets
#include <QApplication>
using Application = QApplication;
#else
#include <QGuiApplication>
using Application = QGuiApplication;
#endif

#include <gmock/gmock.h>

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleMock(&argc, argv);
    const Application application(argc, argv);
    return RUN_ALL_TESTS();
}
