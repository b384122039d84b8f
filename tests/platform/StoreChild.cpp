// Another process that uses a store: "dump STORE KEY…" prints dumpStore(), "count STORE PREFIX" writes 100 keys one by
// one.
#include "StoreDump.h"

#include <cstdio>

int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    UserDefaults defaults(arguments.at(1));
    if (arguments.at(0) == QLatin1StringView("dump")) {
        std::fputs(dumpStore(defaults, arguments.sliced(2)).constData(), stdout);
        return 0;
    }
    bool written = true;
    for (int i = 0; i < 100; ++i) {
        defaults.setInteger(arguments.at(2) + QString::number(i), i);
        written &= defaults.synchronize();
    }
    return written ? 0 : 1;
}
