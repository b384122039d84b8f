#include "app/WindowFront.h"

#include "Shared/FrameGrabber.h"
#include "Shared/HostIdentity.h"
#include "app/ProgramSetup.h"
#include "app/QuitSignals.h"
#include "app/window/AppDelegate.h"
#include "app/window/DesktopService.h"
#include "app/window/MacAppHelper.h"
#include "online/ServiceUrl.h"
#include "platform/Log.h"
#include "platform/desktop/ActivationToken.h"
#include "platform/desktop/BlockedCloseButton.h"
#include "platform/desktop/DesktopWorkspace.h"
#include "platform/desktop/DisplayServer.h"
#include "platform/desktop/DroppedFiles.h"
#include "platform/desktop/FocusWatch.h"
#include "platform/desktop/Translations.h"
#include "platform/files/FolderBookmarks.h"
#include "platform/files/TemporaryFolder.h"
#include "platform/store/Bundle.h"
#include "platform/store/UserDefaults.h"
#include "platform/widgets/FileOpenPanel.h"
#include "platform/widgets/MessageAlertPanel.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

const QString sandboxMarker = u"/.flatpak-info"_s;

void describeApplication(const QString &identifier)
{
    QApplication::setApplicationName(u"Tessarine"_s);
    QApplication::setDesktopFileName(identifier);
    QApplication::setWindowIcon(QIcon(u":/images/org.tessarine.Tessarine.svg"_s));
    // The main window decides: it may still be waiting for a job when the preferences close.
    QApplication::setQuitOnLastWindowClosed(false);
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
    ProgramSetup::seed(defaults, DefaultsSeed::OutputFolder::Now);
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
    AppDelegate delegate({defaults, grabber, *bookmarks, {alert, openPanel, workspace, DroppedFiles(bus, sandboxed)},
                          mainQueue, GlobalFun::RealHomeDirectory(), service});
    target = &delegate;
    MacAppHelper helper({crashes, service, bundle, defaults});
    helper.awakeFromNib();
    delegate.applicationDidFinishLaunching();
    for (const QString &path : paths) { // now that there is a window for the sheet to hang over
        delegate.openFile(path);
    }
    desktop.setReady();
    const BlockedCloseButton closeButton(*delegate.mainWindow().windowHandle(),
                                         [&delegate] { delegate.mainWindow().quit(); });
    const FocusWatch focusWatch;
    const int status = QApplication::exec();
    desktop.stop(); // a start from now on is on its own
    target = nullptr;
    delegate.applicationWillTerminate();
    return status;
}

} // namespace

int runWindowFront(const QStringList &given, int argc, char **argv)
{
    if (!hasDisplayServer({argv, static_cast<std::size_t>(argc)})) {
        std::fprintf(stderr,
                     "tessarine: no display can be reached for a window; --export makes collages without one\n");
        return 1;
    }
    const ActivationToken token = ActivationToken::ofThisStart();
    const QApplication application(argc, argv);
    ActivationToken::clearEnvironment();
    const QString identifier = Bundle::main().identifier();
    describeApplication(identifier);
    const Translations translations{QLocale()};
    const QStringList paths = absolutePaths(given);

    AppDelegate *delegate = nullptr; // while the program runs
    DesktopService desktop(QDBusConnection::sessionBus(), identifier,
                           {[&delegate](const QStringList &files, const ActivationToken &click) {
                                // First: Wayland brings nothing forward that it has not shown yet, like the sheet.
                                delegate->mainWindow().bringForward(click);
                                for (const QString &file : files) {
                                    delegate->openFile(file);
                                }
                            },
                            [&delegate](const ActivationToken &click) { delegate->mainWindow().bringForward(click); }});
    if (desktop.start(paths, token) == DesktopService::Outcome::HandedOver) {
        return 0;
    }
    // On Wayland a window gets the keyboard only so; on X11 the toolkit has seen to it.
    if (QGuiApplication::platformName() != u"xcb" && !token.platformData().isEmpty()) {
        desktop.Activate(token.platformData());
    }
    // Before the folder, which a signal would leave behind otherwise; what it asks for waits for the event loop.
    const QuitSignals quitSignals([&delegate] { delegate->mainWindow().quit(); });
    const TemporaryFolder temporaryFolder(QDir::tempPath());
    if (temporaryFolder.error()) {
        qCCritical(lcTessarine) << "no temporary folder:" << temporaryFolder.error().message().c_str();
        return 1;
    }
    return runWindow(paths, desktop, delegate, temporaryFolder.path());
}
