#include "app/command/ExportOptions.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using Action = ExportOptions::Action;

static Result<ExportOptions> parse(const QString &arguments)
{
    return ExportOptions::parse(QString(u"tessarine " + arguments).split(u' '));
}

TEST(ExportOptions, LeavesTheToolkitItsOwn)
{
    const auto window = parse(u"-style Fusion a --platform xcb -reverse --stylesheet=x b -- -style c"_s);
    EXPECT_EQ(window.value().action, Action::OpenWindow);
    EXPECT_EQ(window->paths, (QStringList{u"a"_s, u"b"_s, u"-style"_s, u"c"_s}));
    EXPECT_FALSE(parse(u"--export -style Fusion a"_s));
}

TEST(ExportOptions, RefusesWhatMakesNoSense)
{
    EXPECT_TRUE(parse(u"--export --set DefultBkgColor=#80ff0000 a"_s)); // the rest is good
    EXPECT_FALSE(parse(u"--rows 3 a"_s));
    for (const char *options :
         {"--frobnicate a", "-o", "-o out --beside a", "--rows 0 a", "--rows 2147483648 a", "--columns 1.5 a",
          "--tile-width 0 a", "--format gif a", "--start 5:30 a", "--end nan a", "--start 10 --end 9 a",
          "--set Nonsense=1 a", "--set DefaultRowNumber=many a", "--set DefaultColumeNumber=0 a",
          "--set DefultBkgColor=red a", "--set DefaultDrawShadow=perhaps a", "--set BookmarksKey=x a", ""}) {
        EXPECT_FALSE(parse(u"--export " + QString::fromLatin1(options))) << options;
    }
}
