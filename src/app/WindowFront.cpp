#include "app/WindowFront.h"

#include "app/ProgramSetup.h"
#include "app/WindowProgram.h"
#include "platform/desktop/ActivationToken.h"
#include "platform/desktop/DisplayServer.h"
#include "platform/desktop/Translations.h"
#include "platform/store/Bundle.h"

#include <QApplication>
#include <QIcon>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void describeApplication(const QString &identifier)
{
    QApplication::setApplicationName(u"Tessarine"_s);
    QApplication::setDesktopFileName(identifier);
    QApplication::setWindowIcon(QIcon(u":/images/org.tessarine.Tessarine.svg"_s));
    // The main window decides: it may still be waiting for a job when the preferences close.
    QApplication::setQuitOnLastWindowClosed(false);
}

QStringList absolutePaths(const QStringList &paths)
{
    QStringList result;
    std::ranges::transform(paths, std::back_inserter(result), ProgramSetup::absolutePath);
    return result;
}

} // namespace

int runWindowFront(const QStringList &paths, int argc, char **argv)
{
    if (!hasDisplayServer({argv, static_cast<std::size_t>(argc)})) {
        std::fprintf(stderr,
                     "tessarine: no display can be reached for a window; --export makes collages without one\n");
        return 1;
    }
    const ActivationToken token = ActivationToken::ofThisStart();
    const QApplication application(argc, argv);
    ActivationToken::clearEnvironment();
    const QString identifier = Bundle::main().identifier();
    describeApplication(identifier);
    const Translations translations{QLocale()};
    const QStringList files = absolutePaths(paths);
    WindowProgram program(identifier);
    return program.handOver(files, token) ? 0 : program.run(files);
}
