#include "app/WindowFront.h"

#include "Shared/FrameGrabber.h"
#include "Shared/HostIdentity.h"
#include "app/AppDelegate.h"
#include "app/DesktopService.h"
#include "app/MacAppHelper.h"
#include "app/ProgramSetup.h"
#include "app/QuitSignals.h"
#include "online/ServiceUrl.h"
#include "platform/Bundle.h"
#include "platform/DesktopWorkspace.h"
#include "platform/FileOpenPanel.h"
#include "platform/FolderBookmarks.h"
#include "platform/Log.h"
#include "platform/MessageAlertPanel.h"
#include "platform/Translations.h"
#include "platform/UserDefaults.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

const QString sandboxMarker = QStringLiteral("/.flatpak-info");

void describeApplication(const QString &identifier)
{
    QApplication::setApplicationName(QStringLiteral("Tessarine"));
    QApplication::setDesktopFileName(identifier);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/images/org.tessarine.Tessarine.svg")));
    // The main window decides: it may still be waiting for a job when the preferences close.
    QApplication::setQuitOnLastWindowClosed(false);
}

/// Without one the toolkit would abort.
bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

QStringList absolutePaths(const QStringList &paths)
{
    QStringList result;
    std::ranges::transform(paths, std::back_inserter(result), ProgramSetup::absolutePath);
    return result;
}

/// Builds the program around the application object and runs it until it ends.
int runWindow(const QStringList &paths, DesktopService &desktop, AppDelegate *&target, const QString &temporaryFolder)
{
    const bool sandboxed = QFile::exists(sandboxMarker);
    const QDBusConnection bus = QDBusConnection::sessionBus();
    UserDefaults defaults(ProgramSetup::storePath());
    ProgramSetup::seed(defaults);
    CrashReportSender crashes = ProgramSetup::crashReportSender(GlobalFun::getGUID(defaults));
    const Bundle bundle = Bundle::main();
    const ServiceUrl service = ServiceUrl::ofThisProgram(bundle);
    const QString toolPath = ProgramSetup::toolPath();
    ProgramSetup::warnOfMissingParts(toolPath);
    FrameGrabber grabber(toolPath, temporaryFolder);
    const auto bookmarks = FolderBookmarks::ofThisSystem(bus, sandboxMarker);
    MainQueue mainQueue;
    MessageAlertPanel alert(mainQueue);
    FileOpenPanel openPanel(sandboxed);
    DesktopWorkspace workspace(mainQueue, bus, sandboxed);
    AppDelegate delegate({defaults, grabber, *bookmarks, alert, openPanel, workspace, mainQueue,
                          GlobalFun::RealHomeDirectory(), service});
    target = &delegate;
    MacAppHelper helper({crashes, service, bundle, defaults});
    helper.awakeFromNib();
    const QuitSignals quitSignals([&delegate] { delegate.mainWindow().quit(); });
    for (const QString &path : paths) {
        delegate.openFile(path);
    }
    delegate.applicationDidFinishLaunching();
    desktop.setReady();
    const int status = QApplication::exec();
    desktop.stop(); // a start from now on is on its own
    target = nullptr;
    delegate.applicationWillTerminate();
    return status;
}

} // namespace

int runWindowFront(const QStringList &given, int argc, char **argv)
{
    if (!hasDisplay()) {
        std::fprintf(stderr, "tessarine: there is no display for a window; --export makes collages without one\n");
        return 1;
    }
    const QApplication application(argc, argv);
    const QString identifier = Bundle::main().identifier();
    describeApplication(identifier);
    const Translations translations{QLocale()};
    const QStringList paths = absolutePaths(given);

    AppDelegate *delegate = nullptr; // while the program runs
    DesktopService desktop(QDBusConnection::sessionBus(), identifier,
                           {[&delegate](const QStringList &files) {
                                for (const QString &file : files) {
                                    delegate->openFile(file);
                                }
                                delegate->mainWindow().bringForward();
                            },
                            [&delegate] { delegate->mainWindow().bringForward(); }});
    if (desktop.start(paths) == DesktopService::Outcome::HandedOver) {
        return 0;
    }
    const QTemporaryDir temporaryFolder(QDir::tempPath() + u"/tessarine-XXXXXX");
    if (!temporaryFolder.isValid()) {
        qCCritical(lcTessarine).noquote() << "no temporary folder:" << temporaryFolder.errorString();
        return 1;
    }
    return runWindow(paths, desktop, delegate, temporaryFolder.path());
}
