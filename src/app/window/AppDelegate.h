#pragma once

#include "app/window/MainWindowController.h"
#include "online/ServiceUrl.h"
#include "online/VXConfigManager.h"
#include "platform/desktop/Desktop.h"
#include "platform/threads/MainQueue.h"
#include "platform/threads/NotificationCenter.h"
#include "prefs/TrustedFolders.h"
#include "prefs/panes/MASPreferencesWindowController.h"

#include <QStringList>

#include <memory>
#include <vector>

class FolderBookmarks;
class FrameGrabber;
class UserDefaults;
class VXMediaInfoItem;

/// The program with its window: builds the windows, starts the program in its order, opens what the desktop hands over
/// and saves the settings at the end. Owned by main; main thread.
class AppDelegate {
public:
    /// All of it must outlive this.
    struct Services {
        UserDefaults &defaults; ///< seeded
        FrameGrabber &grabber;
        const FolderBookmarks &bookmarks;
        Desktop desktop;
        MainQueue &mainQueue;
        QString home;
        ServiceUrl service = {}; ///< that sets the remote flags
    };

    explicit AppDelegate(Services services);
    ~AppDelegate();
    AppDelegate(const AppDelegate &) = delete;
    AppDelegate &operator=(const AppDelegate &) = delete;

    /// The launch: media layer, preferences window with its panes, main window, a request for the remote flags.
    void applicationDidFinishLaunching();
    /// Loads one file or folder at the top of the list; true whatever the load will find.
    bool openFile(const QString &path);
    /// Writes the settings to disk.
    void applicationWillTerminate();
    /// Shows the preferences window.
    void preferencesDown();
    /// Crashes the program, by an exception that nobody catches, so that there is a crash to record. In a menu of its
    /// own, for those who start the program with TESSARINE_DEBUG_MENU=1.
    [[noreturn]] void crashapp();
    /// The block of facts about the movie, as the settings choose them.
    QString getMetaStrWithObject(const VXMediaInfoItem &movie) const;

    MainWindowController &mainWindow() { return *window_; }

private:
    void buildPreferencesWindow();
    void addDebugMenu();

    Services services_;
    VXConfigManager config_;
    NotificationCenter notifications_;
    TrustedFolders trustedFolders_;
    std::unique_ptr<MainWindowController> window_;
    std::vector<std::unique_ptr<PreferencePane>> panes_; // the preferences window keeps this very list
    std::unique_ptr<MASPreferencesWindowController> preferWndCtl;
};
