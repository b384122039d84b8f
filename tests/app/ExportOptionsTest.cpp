#include "app/ExportOptions.h"

#include "platform/ColorArchive.h"

#include <gtest/gtest.h>

namespace {

using Action = ExportOptions::Action;

ExportOptions parse(const QString &arguments)
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
    for (const SettingOption &setting : options.settings) {
        settings.insert(setting.key, setting.value.toString());
    }
    EXPECT_EQ(settings.values(), // by key: columns, gaps, rows, width, ground, format
              (QStringList{u"5"_qs, u"7.9"_qs, u"4"_qs, u"120"_qs,
                           QString::fromUtf8(ColorArchive::archive(QColor(255, 0, 0, 128))), u"3"_qs}));
}

TEST(ExportOptions, ChoosesWhatToDo)
{
    for (const auto &[arguments, action] : {std::pair{"--export a", Action::Export},
                                            {"--help", Action::ShowHelp},
                                            {"-v", Action::ShowVersion},
                                            {"--export --help", Action::ShowHelp},
                                            {"a.mkv b.mkv", Action::OpenWindow}}) {
        EXPECT_EQ(parse(QString::fromLatin1(arguments)).action, action) << arguments;
    }
    EXPECT_EQ(ExportOptions::parse({QStringLiteral("tessarine")}).action, Action::OpenWindow);
}

TEST(ExportOptions, RefusesWhatMakesNoSense)
{
    for (const char *arguments : {"--export",
                                  "--export ",
                                  "--frobnicate",
                                  "--rows 3 a",
                                  "--export -o",
                                  "--export -o out --beside a",
                                  "--export --rows x a",
                                  "--export --rows -1 a",
                                  "--export --rows 2147483648 a",
                                  "--export --columns 1.5 a",
                                  "--export --tile-width 0 a",
                                  "--export --format gif a",
                                  "--export --format JPG a",
                                  "--export --start 5:30 a",
                                  "--export --start -1 a",
                                  "--export --end nan a",
                                  "--export --start 10 --end 9 a",
                                  "--export --set Nonsense=1 a",
                                  "--export --set DefaultRowNumber a",
                                  "--export --set DefaultRowNumber=many a",
                                  "--export --set DefultBkgColor=red a",
                                  "--export --set DefaultDrawShadow=perhaps a",
                                  "--export --set BookmarksKey=x a"}) {
        const ExportOptions options = parse(QString::fromLatin1(arguments));
        EXPECT_EQ(options.action, Action::RefuseUsage) << arguments;
        EXPECT_FALSE(options.problem.isEmpty()) << arguments;
    }
}

} // namespace
