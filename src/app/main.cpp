// The program's entry: reads the command line and hands over to the front that it asks for.

#include "app/ExportFront.h"
#include "app/ProgramSetup.h"
#include "app/WindowFront.h"
#include "app/command/ExportCommand.h"
#include "app/command/ExportOptions.h"
#include "platform/store/Bundle.h"
#include "platform/threads/InlinePainting.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

ExportCommand::Status say(const QString &text)
{
    std::printf("%s", qUtf8Printable(text));
    if (std::fflush(stdout) == 0) {
        return ExportCommand::AllWritten;
    }
    std::perror("tessarine: standard output");
    return ExportCommand::SomeFailed;
}

} // namespace

int main(int argc, char **argv)
{
    ProgramSetup::ensureUtf8Locale();
    paintInline();
    auto options = ExportOptions::parse(ProgramSetup::arguments(argc, argv));
    if (!options) {
        std::fprintf(stderr, "tessarine: %s\nTry 'tessarine --help'.\n", qUtf8Printable(options.error()));
        return ExportCommand::WrongUsage;
    }
    switch (options->action) {
    case ExportOptions::Action::OpenWindow:
        return runWindowFront(options->paths, argc, argv);
    case ExportOptions::Action::Export:
        return runExportFront(std::move(*options), argc, argv);
    case ExportOptions::Action::ShowHelp:
        return say(ExportOptions::help());
    case ExportOptions::Action::ShowVersion:
        break;
    }
    return say(u"Tessarine %1\n"_s.arg(Bundle::main().value(u"CFBundleShortVersionString"_s)));
}
