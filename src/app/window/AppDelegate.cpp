#include "app/window/AppDelegate.h"

#include "Shared/PreferenceKeys.h"
#include "media/VXMediaInfo.h"
#include "platform/store/Bundle.h"
#include "platform/store/UserDefaults.h"
#include "prefs/panes/RBGeneralPreferViewCtl.h"
#include "prefs/panes/RBMetadataPrefViewCtl.h"
#include "prefs/panes/VXTrustedPathViewCtl.h"
#include "render/MetadataText.h"

#include <QMenuBar>

#include <stdexcept>
#include <utility>

using namespace Qt::StringLiterals;

AppDelegate::AppDelegate(Services services) :
    services_(std::move(services)),
    config_(services_.defaults),
    trustedFolders_(services_.defaults, services_.bookmarks)
{
    window_ = std::make_unique<MainWindowController>(
        MainWindowController::Services{.defaults = services_.defaults,
                                       .grabber = services_.grabber,
                                       .trustedFolders = trustedFolders_,
                                       .notifications = notifications_,
                                       .desktop = services_.desktop,
                                       .mainQueue = services_.mainQueue,
                                       .home = services_.home,
                                       .experimental = config_.experimental(),
                                       .showPreferences = [this] { preferencesDown(); }});
    if (qEnvironmentVariable("TESSARINE_DEBUG_MENU") == u'1') {
        addDebugMenu();
    }
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching()
{
    FFMpegInit();
    if (!preferWndCtl) {
        buildPreferencesWindow();
    }
    window_->show();
    window_->appLaunched();
    config_.getOnlineConfig(services_.service, Bundle::main());
}

void AppDelegate::addDebugMenu()
{
    //% "Debug"
    QMenu *menu = window_->menuBar()->addMenu(qtTrId("debug_menu"));
    //% "Crash"
    QAction *crash = menu->addAction(qtTrId("debug_crash"));
    crash->setObjectName(u"crashapp"_s);
    QObject::connect(crash, &QAction::triggered, menu, [this] { crashapp(); });
}

void AppDelegate::crashapp()
{
    throw std::invalid_argument("crashapp: nothing can be added to the list");
}

void AppDelegate::buildPreferencesWindow()
{
    panes_.push_back(std::make_unique<RBGeneralPreferViewCtl>(services_.defaults));
    panes_.push_back(std::make_unique<RBMetadataPrefViewCtl>(services_.defaults, notifications_));
    //% "Preferences"
    preferWndCtl = std::make_unique<MASPreferencesWindowController>(panes_, qtTrId("Preferences"), services_.defaults);
    panes_.push_back(
        std::make_unique<VXTrustedPathViewCtl>(trustedFolders_, services_.desktop.openPanel, services_.mainQueue));
    // The third pane is shown once, so that it resolves the remembered folders before any work needs them. The window
    // opens with the first one, whatever was selected last time.
    preferWndCtl->window();
    if (preferWndCtl->selectedViewController() != panes_.back().get()) {
        preferWndCtl->selectControllerAtIndex(2);
    }
    preferWndCtl->selectControllerAtIndex(0);
}

bool AppDelegate::openFile(const QString &path)
{
    window_->loadMediasWithPaths({path}, 0);
    return true;
}

void AppDelegate::applicationWillTerminate()
{
    services_.defaults.synchronize();
}

void AppDelegate::preferencesDown()
{
    preferWndCtl->showWindow();
}

QString AppDelegate::getMetaStrWithObject(const VXMediaInfoItem &movie) const
{
    return ::getMetaStrWithObject(movie, services_.defaults.int32Value(PreferenceKeys::metadataText));
}
