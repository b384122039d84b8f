#include "app/command/Console.h"

#include "Shared/PathParts.h"
#include "platform/files/PathText.h"
#include "render/ExportObserver.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int usualWidth = 80;
constexpr int barCells = 24;
/// When a file that holds the progress gets a line on what is waited for.
constexpr std::chrono::seconds longWait{10};

int widthOf(std::FILE *stream)
{
    struct winsize size = {};
    return ioctl(fileno(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usualWidth;
}

double fractionDone(const ExportProgress &progress)
{
    const double tiles =
        static_cast<double>(progress.tile) / static_cast<double>(std::max<std::int64_t>(1, progress.tileCount));
    return std::clamp((progress.movie + tiles) / std::max(1, progress.movieCount), 0.0, 1.0);
}

QString bar(double fraction)
{
    const int done = static_cast<int>(fraction * barCells);
    return u'[' + QString(done, u'#') + QString(barCells - done, u'.') + u']';
}

/// The path, if a terminal can show it as it is; otherwise so that a shell reads it as the same bytes.
QByteArray quotedForShell(const QString &path)
{
    QByteArray bytes = PathText::toBytes(path);
    if (PathText::forDisplay(path).toUtf8() == bytes) {
        return bytes;
    }
    QByteArray quoted = "$'";
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        if (value < 0x20 || value >= 0x7F) {
            quoted += "\\x" + QByteArray(1, byte).toHex();
        } else {
            quoted += byte == '\'' || byte == '\\' ? QByteArray("\\") + byte : QByteArray(1, byte);
        }
    }
    return quoted + '\'';
}

QString movieName(const ExportProgress &progress)
{
    return PathText::forDisplay(GlobalFun::lastPathComponent(progress.filePath));
}

QString movieNumber(const ExportProgress &progress)
{
    return u"movie %1 of %2"_s.arg(progress.movie + 1).arg(progress.movieCount);
}

QString waitingText(const ExportProgress &progress)
{
    return u"waiting for frame %1 of %2"_s.arg(progress.tile + 1).arg(progress.tileCount);
}

QString stateText(const ExportProgress &progress, const QString &remaining)
{
    if (progress.tileCount == 0) {
        return u"reading"_s;
    }
    if (progress.waited.count() > 0) {
        return waitingText(progress) + u", %1 s"_s.arg(progress.waited.count());
    }
    return u"tile %1 of %2"_s.arg(progress.tile).arg(progress.tileCount) +
           (remaining.isEmpty() ? QString() : u", " + remaining);
}

} // namespace

Console::Console(std::FILE *results, std::FILE *messages, bool quiet) :
    results_(results), messages_(messages), quiet_(quiet), isTerminal_(isatty(fileno(messages)) == 1)
{
}

Console::~Console()
{
    clearBar();
}

Result<void, std::error_code> Console::printResult(const QString &path)
{
    clearBar();
    const QByteArray line = isatty(fileno(results_)) == 1 ? quotedForShell(path) : PathText::toBytes(path);
    const bool printed = std::fprintf(results_, "%s\n", line.constData()) >= 0;
    if ((std::fflush(results_) == 0 && printed) || errno == EPIPE) {
        return {};
    }
    return failure(lastError());
}

void Console::printMessage(const QString &text)
{
    clearBar();
    std::fprintf(messages_, "tessarine: %s\n", PathText::toBytes(text).constData());
    std::fflush(messages_);
}

void Console::printMessage(const QString &path, const QString &reason)
{
    printMessage(PathText::forDisplay(path) + u": " + reason);
}

void Console::showProgress(const ExportProgress &progress)
{
    if (quiet_) {
        return;
    }
    if (isTerminal_) {
        showBar(progress);
        return;
    }
    if (std::exchange(lastMovie_, progress.movie) != progress.movie) {
        printProgress(movieNumber(progress) + u": " + movieName(progress));
    }
    if (progress.waited >= longWait && std::exchange(lastMovieWaitedFor_, progress.movie) != progress.movie) {
        printProgress(movieNumber(progress) + u": " + waitingText(progress));
    }
}

void Console::printProgress(const QString &text)
{
    std::fprintf(messages_, "%s\n", qUtf8Printable(text));
    std::fflush(messages_);
}

void Console::showBar(const ExportProgress &progress)
{
    const double done = fractionDone(progress);
    const QString line = bar(done) + u' ' + movieNumber(progress) + u", " + stateText(progress, estimate_.after(done)) +
                         u"  " + movieName(progress);
    // One column stays free: some terminals wrap when the last one is written.
    std::fprintf(messages_, "\r%s\x1b[K", qUtf8Printable(line.left(widthOf(messages_) - 1)));
    std::fflush(messages_);
    barShown_ = true;
}

void Console::clearBar()
{
    if (barShown_) {
        std::fprintf(messages_, "\r\x1b[K");
        std::fflush(messages_);
        barShown_ = false;
    }
}
