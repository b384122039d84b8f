#pragma once

#include "platform/desktop/Workspace.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <memory>

class MainQueue;

/// The user's desktop: opens files in the program for their type, shows them in the file browser. May be called on any
/// thread; made on the main thread, where the work is done. Nothing waits for the desktop's answer.
class DesktopWorkspace final : public Workspace {
public:
    /// `sandboxed`: outside programs are to be reached through portals. The queue is the main thread's and must outlive
    /// this; work of this object that still waits in it when this ends is not done.
    DesktopWorkspace(MainQueue &mainQueue, const QDBusConnection &sessionBus, bool sandboxed);

    void openFile(const QString &path) override;
    /// Where there is no file browser that can select, the folder is opened.
    void revealFile(const QString &path) override;

private:
    void onMainThread(std::function<void()> work);
    void showItems(const QString &path);
    void openDirectory(const QString &path);
    /// Sends the call, and opens the folder of the path when it comes back as an error.
    void callOrOpenFolder(const QDBusMessage &message, const QString &path);

    MainQueue &mainQueue_;
    QDBusConnection sessionBus_;
    const bool sandboxed_;
    QObject context_; ///< answers are taken as long as this lives
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};
