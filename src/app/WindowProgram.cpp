#include "app/WindowProgram.h"

#include "Shared/FrameGrabber.h"
#include "Shared/HostIdentity.h"
#include "app/InterruptSignals.h"
#include "app/ProgramSetup.h"
#include "app/window/AppDelegate.h"
#include "app/window/MacAppHelper.h"
#include "online/ServiceUrl.h"
#include "platform/Log.h"
#include "platform/desktop/ActivationToken.h"
#include "platform/desktop/BlockedCloseButton.h"
#include "platform/desktop/DesktopNotification.h"
#include "platform/desktop/DesktopWorkspace.h"
#include "platform/desktop/FocusWatch.h"
#include "platform/desktop/TaskbarProgress.h"
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

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QString sandboxMarker = u"/.flatpak-info"_s;

struct SeededDefaults : UserDefaults {
    SeededDefaults() : UserDefaults(ProgramSetup::storePath())
    {
        ProgramSetup::seed(*this, DefaultsSeed::OutputFolder::Now);
    }
};

} // namespace

/// What the window works with, and the delegate that builds it.
struct WindowProgram::Parts {
    Parts(const QString &temporaryFolder, MainQueue &queue) :
        mainQueue(queue), grabber(ProgramSetup::toolPath(), temporaryFolder)
    {
    }

    Desktop desktop()
    {
        Desktop desktop{alert, fileOpenPanel(sandboxed), workspace, DroppedFiles(bus, sandboxed)};
        desktop.notify = std::bind_front(&DesktopNotification::show, &notification);
        desktop.showProgress = std::bind_front(&TaskbarProgress::show, &taskbar);
        return desktop;
    }

    MainQueue &mainQueue;
    const bool sandboxed = QFile::exists(sandboxMarker);
    const QDBusConnection bus = QDBusConnection::sessionBus();
    SeededDefaults defaults;
    CrashReportSender crashes = ProgramSetup::crashReportSender(GlobalFun::getGUID(defaults));
    const Bundle bundle = Bundle::main();
    const ServiceUrl service = ServiceUrl::ofThisProgram(bundle);
    FrameGrabber grabber;
    const std::unique_ptr<FolderBookmarks> bookmarks = FolderBookmarks::ofThisSystem(bus, sandboxMarker);
    MessageAlertPanel alert{mainQueue};
    DesktopWorkspace workspace{mainQueue, bus, sandboxed};
    DesktopNotification notification{bus, bundle.identifier(), sandboxed, [this](const ActivationToken &click) {
                                         delegate.mainWindow().bringForward(click);
                                     }};
    TaskbarProgress taskbar{bus, bundle.identifier()};
    AppDelegate delegate{{.defaults = defaults,
                          .grabber = grabber,
                          .bookmarks = *bookmarks,
                          .desktop = desktop(),
                          .mainQueue = mainQueue,
                          .home = GlobalFun::RealHomeDirectory(),
                          .service = service}};
    MacAppHelper helper{{.sender = crashes, .service = service, .bundle = bundle, .defaults = defaults}};
};

WindowProgram::WindowProgram(const QString &identifier) :
    desktop_(QDBusConnection::sessionBus(), identifier,
             {[this](const QStringList &paths, const ActivationToken &click) { open(paths, click); },
              [this](const ActivationToken &click) { bringForward(click); }})
{
}

WindowProgram::~WindowProgram() = default;

bool WindowProgram::handOver(const QStringList &paths, const ActivationToken &token)
{
    if (desktop_.start(paths, token) == DesktopService::Outcome::HandedOver) {
        return true;
    }
    // Wayland gives a window the keyboard only with the token; on X11 the toolkit has used it already.
    if (QGuiApplication::platformName() != u"xcb" && !token.platformData().isEmpty()) {
        desktop_.Activate(token.platformData());
    }
    return false;
}

int WindowProgram::run(const QStringList &paths)
{
    // Before the folder is made, which a signal would otherwise leave behind. The request to quit waits for the event
    // loop.
    const InterruptSignals interrupts(
        InterruptSignals::HeardBy::AnyThread, // or programs that open files would inherit the block
        [this](const auto &) { mainQueue_.async([this] { quit(); }); });
    const auto temporaryFolder = TemporaryFolder::in(QDir::tempPath());
    if (!temporaryFolder) {
        qCCritical(lcTessarine) << "no temporary folder:" << temporaryFolder.error().message().c_str();
        return 1;
    }
    ProgramSetup::warnOfMissingParts(ProgramSetup::toolPath());
    parts_ = std::make_unique<Parts>(temporaryFolder->path(), mainQueue_);
    parts_->helper.awakeFromNib();
    parts_->delegate.applicationDidFinishLaunching();
    for (const QString &path : paths) { // now that there is a window for the sheet to hang over
        parts_->delegate.openFile(path);
    }
    desktop_.setReady();
    int status = 0;
    {
        const BlockedCloseButton closeButton(*parts_->delegate.mainWindow().windowHandle(), [this] { quit(); });
        const FocusWatch focusWatch;
        status = QApplication::exec();
        desktop_.stop(); // a program that starts from now on opens its own window
        parts_->delegate.applicationWillTerminate();
    }
    parts_.reset();
    return status;
}

void WindowProgram::open(const QStringList &paths, const ActivationToken &click)
{
    bringForward(click); // first: Wayland brings nothing forward that it has not shown yet, like the sheet
    for (const QString &path : paths) {
        parts_->delegate.openFile(path);
    }
}

void WindowProgram::bringForward(const ActivationToken &click)
{
    parts_->delegate.mainWindow().bringForward(click);
}

void WindowProgram::quit()
{
    parts_->delegate.mainWindow().quit();
}
