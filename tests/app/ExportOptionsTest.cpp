#include "app/ExportOptions.h"

#include "platform/ColorArchive.h"

#include <gtest/gtest.h>

using Action = ExportOptions::Action;

static ExportOptions parse(const QString &arguments)
{
    return ExportOptions::parse(QString(u"tessarine " + arguments).split(u' '));
}

TEST(ExportOptions, ReadsEveryOption)
{
    const ExportOptions options = parse(QStringLiteral(
        "--export -o out --rows 4 --columns=5 --tile-width 120 --format tiff --start 90 --end 01:02:03.5 "
        "--set DefaultHGaps=7.9 --set DefultBkgColor=#80ff0000 -q a.mkv -- --b.mkv"));
    EXPECT_EQ(options.action, Action::Export) << options.problem.toStdString();
    EXPECT_EQ(options.paths, (QStringList{QStringLiteral("a.mkv"), QStringLiteral("--b.mkv")}));
    EXPECT_EQ(options.outputFolder, QStringLiteral("out"));
    EXPECT_TRUE(options.quiet);
    EXPECT_FALSE(options.beside);
    EXPECT_EQ(options.start, 90.0);
    EXPECT_EQ(options.end, 3723.5);
    QMap<QString, QString> settings;
    for (const SettingOption &setting : options.settings)
        settings.insert(setting.key, setting.value.toString());
    EXPECT_EQ(settings.values(), // by key: columns, gaps, rows, width, ground, format
              (QStringList{u"5"_qs, u"7.9"_qs, u"4"_qs, u"120"_qs,
                           QString::fromUtf8(ColorArchive::archive(QColor(255, 0, 0, 128))), u"3"_qs}));
}

TEST(ExportOptions, RefusesWhatMakesNoSense)
{
    EXPECT_EQ(parse(QStringLiteral("--export --set DefaultRowNumber=1 a")).action, Action::Export); // the rest is good
    EXPECT_EQ(parse(QStringLiteral("--rows 3 a")).action, Action::RefuseUsage);
    for (const char *options :
         {"--frobnicate a", "-o", "-o out --beside a", "--rows -1 a", "--rows 2147483648 a", "--columns 1.5 a",
          "--tile-width 0 a", "--format gif a", "--start 5:30 a", "--end nan a", "--start 10 --end 9 a",
          "--set Nonsense=1 a", "--set DefaultRowNumber=many a", "--set DefultBkgColor=red a",
          "--set DefaultDrawShadow=perhaps a", "--set BookmarksKey=x a", ""}) {
        EXPECT_EQ(parse(u"--export " + QString::fromLatin1(options)).action, Action::RefuseUsage) << options;
    }
}
