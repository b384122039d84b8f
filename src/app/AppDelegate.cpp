#include "app/AppDelegate.h"

#include "app/EqualImages.h"
#include "collage/KTMovieObject.h"
#include "media/VXMediaInfo.h"
#include "online/VXConfigManager.h"
#include "platform/PreferenceKeys.h"
#include "platform/UserDefaults.h"
#include "prefs/RBGeneralPreferViewCtl.h"
#include "prefs/RBMetadataPrefViewCtl.h"
#include "prefs/VXTrustedPathViewCtl.h"
#include "render/CollagePreview.h"
#include "render/MetadataText.h"

#include <QGuiApplication>

#include <utility>

AppDelegate::AppDelegate(Services appServices) :
    services(std::move(appServices)), trustedFolders(services.defaults, services.bookmarks)
{
    // Called by one batch at a time.
    const auto renderPreview = [this, equalImages = std::make_shared<EqualImages>(),
                                ratio = qGuiApp->devicePixelRatio()](const KTMovieObject &movie) {
        return equalImages->shared(renderCollagePreview(listPreviewSize, ratio, movie.settings(),
                                                        getMetaStrWithObject(movie), previewPlaceholder(ratio)));
    };
    window = std::make_unique<MainWindowController>(MainWindowController::Services{
        services.defaults, services.grabber, trustedFolders, notifications, services.alert, services.openPanel,
        services.workspace, services.mainQueue, services.home, VXConfigManager(services.defaults).experimental(),
        renderPreview, [this] { preferencesDown(); }});
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
}

void AppDelegate::buildPreferencesWindow()
{
    panes.push_back(std::make_unique<RBGeneralPreferViewCtl>(services.defaults));
    panes.push_back(std::make_unique<RBMetadataPrefViewCtl>(services.defaults));
    //% "Preferences"
    preferWndCtl = std::make_unique<MASPreferencesWindowController>(panes, qtTrId("Preferences"), services.defaults);
    panes.push_back(std::make_unique<VXTrustedPathViewCtl>(trustedFolders, services.openPanel, services.mainQueue));
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
