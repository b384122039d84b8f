#include "Shared/OutputName.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace GlobalFun;

TEST(OutputName, IsFreeAndHasTheExtension)
{
    const std::tuple<std::vector<const char *>, const char *, const char *> cases[] = {
        {{}, "out/a.JPG", "out/a.JPG.jpg"},
        {{"out/a.jpg", "out/a(2).jpg"}, "out/a.jpg", "out/a(1).jpg"},
        {{"out/clip(1).jpg"}, "out/clip(1).jpg", "out/clip(2).jpg"},
        {{"Set(1)/a(1).jpg", "Set(2)/a(2).jpg"}, "Set(1)/a(1).jpg", "Set(3)/a(3).jpg"},
        {{"out/caf\xe9.jpg"}, "out/caf\xe9.jpg", "out/caf\xe9(1).jpg"},
    };
    for (const auto &[taken, wanted, given] : cases) {
        const ScratchFolder folder;
        for (const char *name : taken) {
            folder.write(name);
        }
        EXPECT_EQ(makeSureFullPathIdentical(folder.path(wanted), u"jpg"_s), folder.path(given));
    }
}

TEST(OutputName, LeavesAnImpossibleNameToTheWriter)
{
    const ScratchFolder folder;
    for (const QString &name :
         {folder.path(QByteArray(300, 'n') + ".jpg"), QString(folder.path() + QChar::Null + u".jpg")}) {
        EXPECT_EQ(makeSureFullPathIdentical(name, u"jpg"_s), name);
    }
}
