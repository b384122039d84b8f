#include "Shared/OutputName.h"
#include "Shared/PathParts.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace {

using namespace GlobalFun;

TEST(PathParts, TakeAPathApart)
{
    struct {
        const char *path, *name, *folder, *extension, *withoutExtension;
    } const cases[] = {
        {"/a/b.mp4", "b.mp4", "/a", "mp4", "/a/b"},
        {"/a.b/c", "c", "/a.b", "", "/a.b/c"},
        {"/x/.mp4", ".mp4", "/x", "mp4", "/x/"},
        {"/x/end.", "end.", "/x", "", "/x/end"},
        {"name.MKV", "name.MKV", "", "MKV", "name"},
        {"/top", "top", "/", "", "/top"},
        {"/a/b.d/", "b.d", "/a", "d", "/a/b"},
        {"/", "/", "/", "", "/"},
        {"", "", "", "", ""},
    };
    for (const auto &each : cases) {
        const QString path = QString::fromUtf8(each.path);
        EXPECT_EQ(lastPathComponent(path).toStdString(), each.name) << each.path;
        EXPECT_EQ(deletingLastPathComponent(path).toStdString(), each.folder) << each.path;
        EXPECT_EQ(pathExtension(path).toStdString(), each.extension) << each.path;
        EXPECT_EQ(deletingPathExtension(path).toStdString(), each.withoutExtension) << each.path;
    }
}

TEST(OutputName, IsFreeAndHasTheExtension)
{
    struct {
        std::vector<const char *> taken;
        const char *wanted, *given;
    } const cases[] = {
        {{}, "out/a.jpg", "out/a.jpg"},
        {{}, "out/a.JPG", "out/a.JPG.jpg"},
        {{}, "out/clip.mp4", "out/clip.mp4.jpg"},
        {{"out/a.jpg", "out/a(1).jpg"}, "out/a.jpg", "out/a(2).jpg"},
        {{"out/a.jpg", "out/a(2).jpg"}, "out/a.jpg", "out/a(1).jpg"},
        {{"out/a.jpg", "out/a(1).jpg", "out/a(2).jpg", "out/a(3).jpg"}, "out/a.jpg", "out/a(4).jpg"},
        {{"out/clip(1).jpg"}, "out/clip(1).jpg", "out/clip(2).jpg"},
        {{"out/clip(7).jpg"}, "out/clip(7).jpg", "out/clip(7)(1).jpg"},
        {{"Set(1)/a(1).jpg", "Set(2)/a(2).jpg"}, "Set(1)/a(1).jpg", "Set(3)/a(3).jpg"},
        {{"out/caf\xe9.jpg"}, "out/caf\xe9.jpg", "out/caf\xe9(1).jpg"},
    };
    for (const auto &each : cases) {
        const ScratchFolder folder;
        for (const char *name : each.taken)
            folder.write(name);
        EXPECT_EQ(makeSureFullPathIdentical(folder.path(each.wanted), QStringLiteral("jpg")), folder.path(each.given))
            << each.wanted;
    }
}

TEST(OutputName, TakesADanglingLinkForAFileAndLeavesAnImpossibleNameToTheWriter)
{
    const ScratchFolder folder;
    folder.link("nowhere", "a.jpg");
    EXPECT_EQ(makeSureFullPathIdentical(folder.path("a"), QStringLiteral("jpg")), folder.path("a(1).jpg"));

    const QString tooLong = folder.path(QByteArray(300, 'n') + ".jpg");
    EXPECT_EQ(makeSureFullPathIdentical(tooLong, QStringLiteral("jpg")), tooLong);
    const QString holdsNul = folder.path() + QChar::Null + u".jpg";
    EXPECT_EQ(makeSureFullPathIdentical(holdsNul, QStringLiteral("jpg")), holdsNul);
}

} // namespace
