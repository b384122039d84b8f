#include "app/command/Console.h"

#include "Shared/PathParts.h"
#include "platform/files/PathText.h"
#include "render/ExportObserver.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

constexpr int usualWidth = 80;
constexpr int barCells = 24;

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

QString movieName(const ExportProgress &progress)
{
    return PathText::forDisplay(GlobalFun::lastPathComponent(progress.filePath));
}

QString movieNumber(const ExportProgress &progress)
{
    return u"movie %1 of %2"_s.arg(progress.movie + 1).arg(progress.movieCount);
}

} // namespace

Console::Console(std::FILE *resultStream, std::FILE *messageStream, bool isQuiet) :
    results(resultStream), messages(messageStream), quiet(isQuiet), isTerminal(isatty(fileno(messageStream)) == 1)
{
}

Console::~Console()
{
    clearBar();
}

bool Console::printResult(const QString &path)
{
    clearBar();
    const bool printed = std::fprintf(results, "%s\n", PathText::toBytes(path).constData()) >= 0;
    return (std::fflush(results) == 0 && printed) || errno == EPIPE;
}

void Console::printMessage(const QString &text)
{
    clearBar();
    std::fprintf(messages, "tessarine: %s\n", PathText::toBytes(text).constData());
    std::fflush(messages);
}

void Console::printMessage(const QString &path, const QString &reason)
{
    printMessage(PathText::forDisplay(path) + u": " + reason);
}

void Console::showProgress(const ExportProgress &progress)
{
    if (quiet) {
        return;
    }
    if (isTerminal) {
        showBar(progress);
    } else if (progress.movie != lastMovie) {
        std::fprintf(messages, "%s: %s\n", qUtf8Printable(movieNumber(progress)), qUtf8Printable(movieName(progress)));
        std::fflush(messages);
    }
    lastMovie = progress.movie;
}

void Console::showBar(const ExportProgress &progress)
{
    const double done = fractionDone(progress);
    const QString remaining = estimate.after(done);
    const QString line = bar(done) + u' ' + movieNumber(progress) +
                         u", tile %1 of %2"_s.arg(progress.tile).arg(progress.tileCount) +
                         (remaining.isEmpty() ? QString() : u", " + remaining) + u"  " + movieName(progress);
    // One column stays free: some terminals wrap when the last one is written.
    std::fprintf(messages, "\r%s\x1b[K", qUtf8Printable(line.left(widthOf(messages) - 1)));
    std::fflush(messages);
    barShown = true;
}

void Console::clearBar()
{
    if (barShown) {
        std::fprintf(messages, "\r\x1b[K");
        std::fflush(messages);
        barShown = false;
    }
}
