// Makes the pictures of the documents: starts the real program with movies, does what leads to each picture, and grabs
// its window. Run by scripts/screenshots.
// Usage: screenshots   with MOVIES (their paths, one a line), COLLAGES (a folder) and IMAGES (a folder) in the
// environment

#include "desktop/Desktop.h"
#include "desktop/ScreenReader.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Shot {
    const char *image;
    const char *scale; ///< device pixels for each pixel of the program's
    const char *keys;  ///< pressed in the main window first, with spaces between
    const char *box;   ///< a check box that is clicked then; empty: none
    const char *title; ///< of the window to grab
};

const Shot shots[] = {
    {"window", "1", "Down", "", "Tessarine"},
    {"window-2x", "2", "Down", "", "Tessarine"},
    {"editor", "1", "Down ctrl+e", "", "Custom Collage"},
    {"preferences-general", "1", "ctrl+comma", "General", "Preferences"},
    {"preferences-metadata", "1", "ctrl+comma", "Metadata", "Preferences"},
    {"preferences-paths", "1", "ctrl+comma", "Trusted Paths", "Preferences"},
};

class Screenshots : public testing::TestWithParam<Shot> {};

TEST_P(Screenshots, Grab)
{
    const Shot &shot = GetParam();
    Desktop desktop;
    desktop.folder.write("config/Tessarine/settings.json", "{\"OutputFolderKey\":\"" + qgetenv("COLLAGES") + "\"}");
    desktop.setVariable(u"QT_SCALE_FACTOR"_s, QString::fromLatin1(shot.scale));
    QProcess program;
    const QStringList movies = qEnvironmentVariable("MOVIES").split(u'\n', Qt::SkipEmptyParts);
    desktop.start(program, QStringLiteral(TESSARINE_EXECUTABLE), movies);
    const QString main = desktop.awaitWindow(u"Tessarine"_s);
    desktop.xdotool({u"windowmove"_s, u"--sync"_s, main, u"0"_s, u"0"_s});
    const ScreenReader reader(desktop.bus.connect(), program.processId());
    for (const QString &movie : movies) {
        const QString name = movie.section(u'/', -1);
        reader.await([&name](const ScreenReader::Object &object) { return object.name.contains(name); });
    }
    reader.awaitNone(u"dialog"_s);
    if (*shot.keys != '\0') {
        desktop.awaitWindow(u"Tessarine"_s); // it has lost the keyboard to its sheet
        desktop.xdotool(QStringList{u"key"_s} + QString::fromLatin1(shot.keys).split(u' '));
    }
    if (*shot.box != '\0') {
        desktop.click(reader.await(u"check box"_s, QString::fromLatin1(shot.box)).rectangle.center());
    }
    const QString window = desktop.awaitWindow(QString::fromLatin1(shot.title));
    const QString image = qEnvironmentVariable("IMAGES") + u'/' + QString::fromLatin1(shot.image) + u".png";
    desktop.grab(window, image);
    EXPECT_TRUE(QFile::exists(image)) << image.toStdString();
    program.terminate();
    EXPECT_TRUE(program.waitForFinished());
}

std::string nameOf(const testing::TestParamInfo<Shot> &info)
{
    return QString::fromLatin1(info.param.image).replace(u'-', u'_').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Images, Screenshots, testing::ValuesIn(shots), nameOf);

} // namespace
