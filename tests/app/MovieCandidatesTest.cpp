#include "app/MovieCandidates.h"

#include "support/ScratchFolder.h"
#include "support/WithoutPrivileges.h"

#include <gtest/gtest.h>

#include <algorithm>

struct MovieCandidatesTest : testing::Test {
    MovieCandidatesTest()
    {
        for (const char *name : {"films/inner/A.MKV", "films/notes.txt", "films/DISC.VOB", "b.xyz", "c.vob"})
            folder.write(name);
        folder.link("films", "link");
        folder.link("nowhere", "dangling.mkv");
    }
    /// Candidates and what was heard, relative to the folder.
    QByteArrayList expand(const QByteArrayList &names, bool acceptVob = false)
    {
        QByteArrayList heard;
        const auto shortened = [this](const QString &path) { return path.mid(folder.path().size() + 1).toUtf8(); };
        MovieCandidates::Events events;
        const auto hear = [&](const QString &path, const QByteArray &what) { heard += shortened(path) + ": " + what; };
        events.unreadable = [&](const QString &path, const QString &error) { hear(path, error.toUtf8()); };
        events.vobRefused = [&](const QString &path) { hear(path, "vob"); };
        events.folder = [&](const QString &path, qsizetype movies) { hear(path, QByteArray::number(movies)); };
        QStringList paths;
        for (const QByteArray &name : names)
            paths += folder.path(name);
        const CancelFlag never = false;
        for (const QString &path : MovieCandidates::expand(paths, {u"mkv"_qs, u"vob"_qs}, acceptVob, events, never))
            heard += shortened(path);
        return heard;
    }

    ScratchFolder folder;
};

TEST_F(MovieCandidatesTest, FoldersAreSearchedAndAllElseIsTriedInTheGivenOrder)
{
    QByteArrayList found = expand({"b.xyz", "films", "b.xyz", "link", "dangling.mkv", "missing"});
    std::sort(found.begin() + 3, found.begin() + 5); // the folder's own order is the file system's
    EXPECT_EQ(found, (QByteArrayList{"films: 2", "missing: lstat error: No such file or directory", "b.xyz",
                                     "films/DISC.VOB", "films/inner/A.MKV", "b.xyz", "link", "dangling.mkv"}));
    EXPECT_EQ(expand({"c.vob", "films/DISC.VOB"}), (QByteArrayList{"c.vob: vob", "films/DISC.VOB: vob"}));
    EXPECT_EQ(expand({"c.vob"}, true), QByteArrayList{"c.vob"});
}

TEST_F(MovieCandidatesTest, AFolderThatCannotBeListedIsTold)
{
    folder.setMode(0700, "films");
    const WithoutPrivileges user;
    EXPECT_EQ(expand({"films"}), QByteArrayList{"films: Permission denied"});
}
