#include "app/ExportFront.h"

#include "Shared/FrameGrabber.h"
#include "Shared/HostIdentity.h"
#include "Shared/PreferenceKeys.h"
#include "app/InterruptSignals.h"
#include "app/ProgramSetup.h"
#include "app/command/Console.h"
#include "app/command/ExportCommand.h"
#include "platform/Log.h"
#include "platform/files/TemporaryFolder.h"
#include "platform/store/UserDefaults.h"
#include "platform/threads/AlternateStack.h"
#include "render/ImageEncoder.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>

#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <new>
#include <pthread.h>
#include <system_error>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Standard error is for progress and errors, so only our own warnings of the log are shown there. QT_LOGGING_RULES
/// shows everything.
void quietenLog()
{
    if (qEnvironmentVariableIsEmpty("QT_LOGGING_RULES")) {
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &text) {
            const bool isOurs = qstrcmp(context.category, lcTessarine().categoryName()) == 0;
            if (type == QtFatalMsg || (isOurs && (type == QtWarningMsg || type == QtCriticalMsg))) {
                std::fprintf(stderr, "tessarine: %s\n", qUtf8Printable(text));
            }
        });
    }
}

/// No display is needed, and a desktop's theme plug-in would look for one. Where the session has no run-time folder, Qt
/// would make one in the temporary folder and leave it there.
void prepareForNoDisplay(const QString &runtimeFolder)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_QPA_PLATFORMTHEME");
    qputenv("QT_NO_GLIB", "1"); // which ends the process where memory runs out
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeFolder));
    }
}

/// An export stores nothing, so it makes no identifier where there is none.
QString storedGuid(const UserDefaults &defaults)
{
    return defaults.contains(PreferenceKeys::guid) ? defaults.textValue(PreferenceKeys::guid) : QString();
}

/// When nobody reads the output any more the images are still wanted, and a file over the size limit is an error of one
/// image. By default both signals end the process.
void ignoreFailedWrites()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

/// Cancels the export, and interrupts the system call that blocks the worker's thread: again and again, since one that
/// begins just after a signal would miss it. What no signal can wake, such as a network disk that has gone, is left
/// behind after ten seconds.
void cancelExport(CancelFlag &cancelled, pthread_t worker, const std::stop_token &ending)
{
    constexpr int wakingSignal = SIGURG; // does nothing else; the system ignores it where nobody waits for it
    struct sigaction interruptCalls = {};
    interruptCalls.sa_handler = [](int) {}; // and without SA_RESTART
    sigaction(wakingSignal, &interruptCalls, nullptr);

    cancelled = true;
    const auto end = std::chrono::steady_clock::now() + 10s;
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any nothing;
    do {
        ::pthread_kill(worker, wakingSignal);
        if (std::chrono::steady_clock::now() > end) {
            std::_Exit(ExportCommand::Interrupted);
        }
    } while (!nothing.wait_for(lock, ending, 100ms, [&ending] { return ending.stop_requested(); }));
}

/// Does what is needed only when the first picture is there, while the first movie is looked into and the tool runs.
std::jthread prepareBeside(const QString &toolPath)
try {
    return std::jthread([toolPath] {
        const AlternateStack stack;
        try {
            ProgramSetup::warnOfMissingParts(toolPath);
            GlobalFun::loadImageFormats();
        } catch (const std::bad_alloc &) {
            // Then it is done when it is needed, or fails there.
        }
    });
} catch (const std::system_error &) { // the system gives no thread
    ProgramSetup::warnOfMissingParts(toolPath);
    return {};
}

void makeAbsolute(ExportOptions &options)
{
    for (QString &path : options.paths) {
        path = ProgramSetup::absolutePath(path);
    }
    if (options.outputFolder) {
        options.outputFolder = ProgramSetup::absolutePath(*options.outputFolder);
    }
}

} // namespace

int runExportFront(ExportOptions options, int argc, char **argv)
{
    quietenLog();
    CancelFlag cancelled = false;
    const InterruptSignals interrupts(InterruptSignals::HeardBy::OtherThreads,
                                      [&cancelled, worker = ::pthread_self()](const std::stop_token &ending) {
                                          cancelExport(cancelled, worker, ending);
                                      });
    Console console(stdout, stderr, options.quiet);
    const auto temporaryFolder = TemporaryFolder::in(QDir::tempPath());
    if (!temporaryFolder) {
        console.printMessage(u"no temporary folder: "_s + inWords(temporaryFolder.error()));
        return ExportCommand::SomeFailed;
    }
    prepareForNoDisplay(temporaryFolder->path());
    argc = 1; // what follows is not the toolkit's
    const QGuiApplication application(argc, argv);
    const QString toolPath = ProgramSetup::toolPath();
    const std::jthread preparation = prepareBeside(toolPath);

    UserDefaults defaults(ProgramSetup::storePath());
    ProgramSetup::seed(defaults, DefaultsSeed::OutputFolder::WhenWritten);
    const CrashReportSender crashes = ProgramSetup::crashReportSender(storedGuid(defaults));
    ignoreFailedWrites();
    FrameGrabber grabber(toolPath, temporaryFolder->path());
    makeAbsolute(options);
    try {
        return ExportCommand(std::move(options), {.defaults = defaults,
                                                  .grabber = grabber,
                                                  .console = console,
                                                  .home = GlobalFun::RealHomeDirectory(),
                                                  .cancelled = cancelled})
            .run();
    } catch (const std::bad_alloc &) {
        console.printMessage(u"there is not enough memory"_s);
        return ExportCommand::SomeFailed;
    }
}
