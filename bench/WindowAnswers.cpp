// How long the main thread of the window keeps events waiting while the list is filled and used. See window-answers.

#include "Shared/FrameGrabber.h"
#include "Shared/PreferenceKeys.h"
#include "app/window/AppDelegate.h"
#include "platform/desktop/AlertPanel.h"
#include "platform/desktop/OpenPanel.h"
#include "platform/desktop/Workspace.h"
#include "platform/files/FolderBookmarks.h"
#include "platform/store/UserDefaults.h"
#include "platform/threads/MainQueue.h"
#include "prefs/DefaultsSeed.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

class Silent final : public AlertPanel, public Workspace {
public:
    int run(const QString & /*title*/, const QString & /*message*/, const QStringList & /*buttons*/) override
    {
        return 0;
    }
    void openFile(const QString & /*path*/) override {}
    void revealFile(const QString & /*path*/) override {}
};

/// Beats on the main thread; what comes between two beats, less their distance, is what an event would have waited.
class Heartbeat {
public:
    Heartbeat()
    {
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            const qint64 wait = clock_.restart();
            longest_ = std::max(longest_, wait);
            if (wait > wanted) {
                std::printf("%26lld s: a wait of %lld ms\n", running_.elapsed() / 1000, wait);
            }
        });
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.start(1);
        clock_.start();
        running_.start();
    }
    /// Milliseconds, since the last time.
    qint64 takeLongest() { return std::exchange(longest_, 0); }

private:
    static constexpr qint64 wanted = 50; // at most

    QTimer timer_;
    QElapsedTimer clock_;
    QElapsedTimer running_;
    qint64 longest_ = 0;
};

double residentMegabytes()
{
    QFile status(u"/proc/self/statm"_s);
    if (!status.open(QIODevice::ReadOnly)) {
        return 0.0;
    }
    return status.readAll().split(' ').value(1).toDouble() * 4096.0 / 1e6;
}

void report(const char *what, Heartbeat &heart)
{
    QTest::qWait(50); // what the deed leaves to later
    std::printf("%-28s longest wait %3lld ms, resident %.0f MB\n", what, heart.takeLongest(), residentMegabytes());
    std::fflush(stdout);
}

void measure(AppDelegate &delegate, const QString &folder)
{
    Heartbeat heart;
    auto &window = delegate.mainWindow();
    auto &table = *window.findChild<QTableView *>(u"tableView"_s);
    QScrollBar &bar = *table.verticalScrollBar();
    report("empty", heart);
    window.loadMediasWithPaths({folder}, 0);
    while (window.isJobRunning()) {
        QTest::qWait(100);
    }
    report("loaded", heart);
    std::printf("rows: %d\n", table.model()->rowCount());
    for (int step = 0; step <= 200; ++step) {
        bar.setValue(static_cast<int>(static_cast<qint64>(bar.maximum()) * step / 200));
        QTest::qWait(5);
    }
    report("scrolled through", heart);
    window.findChild<QAction *>(u"selectAll"_s)->trigger();
    report("all selected", heart);
    table.selectRow(table.model()->rowCount() / 2);
    for (int step = 0; step < 50; ++step) {
        QTest::keyClick(&table, Qt::Key_Down);
    }
    report("50 rows down", heart);
    QTest::keyClick(&table, Qt::Key_Delete);
    report("one deleted", heart);
    window.findChild<QAction *>(u"selectAll"_s)->trigger();
    QTest::keyClick(&table, Qt::Key_Delete);
    report("all deleted", heart);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 4) {
        std::fprintf(stderr, "usage: window-answers TOOL MOVIES SCRATCH\n");
        return 2;
    }
    const QString &scratch = arguments.at(3);
    UserDefaults defaults(scratch + u"/settings.json");
    DefaultsSeed::registDefaults(defaults, DefaultsSeed::resource(), scratch, DefaultsSeed::OutputFolder::WhenWritten);
    FrameGrabber grabber(arguments.at(1), scratch);
    const PathBookmarks bookmarks;
    Silent silent;
    MainQueue mainQueue;
    AppDelegate delegate({.defaults = defaults,
                          .grabber = grabber,
                          .bookmarks = bookmarks,
                          .desktop = {silent, [](const OpenPanelRequest &, const auto &chosen) { chosen({}); }, silent},
                          .mainQueue = mainQueue,
                          .home = scratch});
    delegate.applicationDidFinishLaunching();
    measure(delegate, arguments.at(2));
}
