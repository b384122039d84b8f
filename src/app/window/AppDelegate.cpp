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

AppDelegate::AppDelegate(Services appServices) :
    services(std::move(appServices)), config(services.defaults), trustedFolders(services.defaults, services.bookmarks)
{
    window = std::make_unique<MainWindowController>(
        MainWindowController::Services{.defaults = services.defaults,
                                       .grabber = services.grabber,
                                       .trustedFolders = trustedFolders,
                                       .notifications = notifications,
                                       .desktop = services.desktop,
                                       .mainQueue = services.mainQueue,
                                       .home = services.home,
                                       .experimental = config.experimental(),
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
    window->show();
    window->appLaunched();
    config.getOnlineConfig(services.service, Bundle::main());
}

void AppDelegate::addDebugMenu()
{
    //% "Debug"
    QMenu *menu = window->menuBar()->addMenu(qtTrId("debug_menu"));
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
    panes.push_back(std::make_unique<RBGeneralPreferViewCtl>(services.defaults));
    panes.push_back(std::make_unique<RBMetadataPrefViewCtl>(services.defaults, notifications));
    //% "Preferences"
    preferWndCtl = std::make_unique<MASPreferencesWindowController>(panes, qtTrId("Preferences"), services.defaults);
    panes.push_back(
        std::make_unique<VXTrustedPathViewCtl>(trustedFolders, services.desktop.openPanel, services.mainQueue));
    // Showing the third pane once makes it resolve the remembered folders before any work needs them. The window opens
    // with the first one, whatever was selected last time.
    preferWndCtl->window();
    if (preferWndCtl->selectedViewController() != panes.back().get()) {
        preferWndCtl->selectControllerAtIndex(2);
    }
    preferWndCtl->selectControllerAtIndex(0);
}

bool AppDelegate::openFile(const QString &path)
{
    window->loadMediasWithPaths({path}, 0);
    return true;
}

void AppDelegate::applicationWillTerminate()
{
    services.defaults.synchronize();
}

void AppDelegate::preferencesDown()
{
    preferWndCtl->showWindow();
}

QString AppDelegate::getMetaStrWithObject(const VXMediaInfoItem &movie) const
{
    return ::getMetaStrWithObject(movie, services.defaults.int32Value(PreferenceKeys::metadataText));
}
