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

int main(int argc, char **argv)
{
    ProgramSetup::ensureUtf8Locale();
    paintInline();
    ExportOptions options = ExportOptions::parse(ProgramSetup::arguments(argc, argv));
    switch (options.action) {
    case ExportOptions::Action::OpenWindow:
        return runWindowFront(options.paths, argc, argv);
    case ExportOptions::Action::Export:
        return runExportFront(std::move(options), argc, argv);
    case ExportOptions::Action::ShowHelp:
        std::printf("%s", qUtf8Printable(ExportOptions::help()));
        return ExportCommand::AllWritten;
    case ExportOptions::Action::ShowVersion:
        std::printf("Tessarine %s\n", qUtf8Printable(Bundle::main().value(u"CFBundleShortVersionString"_s)));
        return ExportCommand::AllWritten;
    case ExportOptions::Action::RefuseUsage:
        break;
    }
    std::fprintf(stderr, "tessarine: %s\nTry 'tessarine --help'.\n", qUtf8Printable(options.problem));
    return ExportCommand::WrongUsage;
}
