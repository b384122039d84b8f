// The program's entry: reads the command line, builds what it needs and hands over.

#include "Shared/FileHelper.h"
#include "Shared/FrameGrabber.h"
#include "Shared/HostIdentity.h"
#include "app/Console.h"
#include "app/DefaultsSeed.h"
#include "app/ExportCommand.h"
#include "app/ExportOptions.h"
#include "app/InterruptSignals.h"
#include "platform/Bundle.h"
#include "platform/Log.h"
#include "platform/PathText.h"
#include "platform/UserDefaults.h"

#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <unistd.h>

#include <array>
#include <climits>
#include <clocale>
#include <langinfo.h>

namespace {

/// Qt wants a UTF-8 locale and says so on every start without one.
void ensureUtf8Locale()
{
    std::setlocale(LC_ALL, "");
    if (qstrcmp(nl_langinfo(CODESET), "UTF-8") != 0) {
        qputenv("LC_ALL", "C.UTF-8");
    }
}

/// A script's standard error holds progress and errors, nothing else: of the log only our warnings pass. Everything is
/// shown to those who ask with QT_LOGGING_RULES.
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

QStringList pathTexts(int argc, char **argv)
{
    QStringList texts;
    for (int index = 0; index < argc; ++index) {
        texts += PathText::fromBytes(argv[index]);
    }
    return texts;
}

QString executablePath()
{
    std::array<char, PATH_MAX> buffer{};
    const ssize_t length = readlink("/proc/self/exe", buffer.data(), buffer.size());
    return PathText::fromBytes(QByteArrayView(buffer.data(), std::max<ssize_t>(length, 0)));
}

/// The path from the root, so that it means the same whatever the current folder.
QString absolutePath(const QString &path)
{
    if (path.startsWith(u'/')) {
        return path;
    }
    std::array<char, PATH_MAX> buffer{};
    const char *current = getcwd(buffer.data(), buffer.size());
    qsizetype start = 0;
    while (QStringView(path).mid(start).startsWith(u"./")) {
        start += 2;
    }
    return PathText::fromBytes(current == nullptr ? "" : current) + u'/' + path.mid(start);
}

void makeAbsolute(ExportOptions &options)
{
    for (QString &path : options.paths) {
        path = absolutePath(path);
    }
    if (options.outputFolder) {
        options.outputFolder = absolutePath(*options.outputFolder);
    }
}

void warnOfMissingParts(const QString &toolPath)
{
    if (!FileHelper::fileExistsWithPath(toolPath)) {
        qCWarning(lcTessarine).noquote() << "ffmpeg is missing, expected at" << PathText::forDisplay(toolPath)
                                         << "- collages will have no pictures";
    }
    if (QFontDatabase::families().isEmpty()) {
        qCWarning(lcTessarine) << "no fonts are installed, texts will show as boxes";
    }
}

/// No display is needed, and a desktop's theme plug-in would look for one. Where the session has no run-time folder, Qt
/// would make one in the temporary folder and leave it there.
void prepareForNoDisplay(const QString &runtimeFolder)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_QPA_PLATFORMTHEME");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeFolder));
    }
}

int exportMovies(ExportOptions options, int argc, char **argv)
{
    quietenLog();
    CancelFlag cancelled = false;
    const InterruptSignals interrupts(cancelled);
    Console console(stdout, stderr, options.quiet);
    const QTemporaryDir temporaryFolder(QDir::tempPath() + u"/tessarine-XXXXXX");
    if (!temporaryFolder.isValid()) {
        console.printMessage(QStringLiteral("no temporary folder: ") + temporaryFolder.errorString());
        return ExportCommand::SomeFailed;
    }
    prepareForNoDisplay(temporaryFolder.path());
    const QGuiApplication application(argc, argv);
    const QString toolPath = FrameGrabber::toolPathBeside(executablePath());
    warnOfMissingParts(toolPath);

    const QString home = GlobalFun::RealHomeDirectory();
    UserDefaults defaults(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                          u"/Tessarine/Tessarine.ini");
    DefaultsSeed::registDefaults(defaults, DefaultsSeed::resource(), home);
    FrameGrabber grabber(toolPath, temporaryFolder.path());
    makeAbsolute(options);
    return ExportCommand(std::move(options), {defaults, grabber, console, home, cancelled}).run();
}

} // namespace

int main(int argc, char **argv)
{
    ensureUtf8Locale();
    ExportOptions options = ExportOptions::parse(pathTexts(argc, argv));
    switch (options.action) {
    case ExportOptions::Action::Export:
        return exportMovies(std::move(options), argc, argv);
    case ExportOptions::Action::ShowHelp:
        std::printf("%s", qUtf8Printable(ExportOptions::help()));
        return ExportCommand::AllWritten;
    case ExportOptions::Action::ShowVersion:
        std::printf("Tessarine %s\n",
                    qUtf8Printable(Bundle::main().value(QStringLiteral("CFBundleShortVersionString"))));
        return ExportCommand::AllWritten;
    case ExportOptions::Action::OpenWindow:
        options.problem = QStringLiteral("the window is not built yet; make collages with --export");
        break;
    case ExportOptions::Action::RefuseUsage:
        break;
    }
    std::fprintf(stderr, "tessarine: %s\nTry 'tessarine --help'.\n", qUtf8Printable(options.problem));
    return ExportCommand::WrongUsage;
}
