#include "app/MovieCandidates.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

class MovieCandidatesTest : public testing::Test {
protected:
    MovieCandidatesTest()
    {
        events.unreadable = [this](const QString &path, const QString &error) {
            heard += shortened(path) + u' ' + error;
        };
        events.vobRefused = [this](const QString &path) { heard += shortened(path) + u" vob"; };
        events.folder = [this](const QString &path, qsizetype movies) {
            heard += shortened(path) + u' ' + QString::number(movies);
        };
        QDir(folder.path()).mkpath(QStringLiteral("films/inner"));
        for (const char *name : {"films/inner/A.MKV", "films/notes.txt", "films/DISC.VOB", "b.xyz", "c.vob"}) {
            QFile file(path(name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name;
        }
        QFile::link(path("films"), path("link"));
        QFile::link(path("nowhere"), path("dangling.mkv"));
    }

    QString path(const char *name) const { return folder.filePath(QString::fromLatin1(name)); }
    QString shortened(const QString &full) const { return full.mid(folder.path().size() + 1); }

    QStringList expand(std::initializer_list<const char *> names, bool acceptVob = false)
    {
        QStringList paths;
        for (const char *name : names) {
            paths += path(name);
        }
        heard.clear();
        QStringList found = MovieCandidates::expand(paths, {QStringLiteral("mkv"), QStringLiteral("vob")}, acceptVob,
                                                    events, cancelled);
        std::ranges::transform(found, found.begin(), [this](const QString &full) { return shortened(full); });
        return found;
    }

    QTemporaryDir folder;
    MovieCandidates::Events events;
    QStringList heard;
    CancelFlag cancelled = false;
};

TEST_F(MovieCandidatesTest, FoldersAreSearchedAndAllElseIsTriedInTheGivenOrder)
{
    QStringList found = expand({"b.xyz", "films", "b.xyz", "link", "dangling.mkv"});
    std::ranges::sort(found.begin() + 1, found.begin() + 3, {}, {}); // the folder's own order is the file system's
    const QStringList expected{
        QStringLiteral("b.xyz"), QStringLiteral("films/DISC.VOB"), QStringLiteral("films/inner/A.MKV"),
        QStringLiteral("b.xyz"), QStringLiteral("link"),           QStringLiteral("dangling.mkv")};
    EXPECT_EQ(found, expected);
    EXPECT_EQ(heard, QStringList{QStringLiteral("films 2")});
}

TEST_F(MovieCandidatesTest, SingleVobFilesWantPermission)
{
    EXPECT_EQ(expand({"c.vob", "films/DISC.VOB"}), QStringList());
    EXPECT_EQ(heard, (QStringList{QStringLiteral("c.vob vob"), QStringLiteral("films/DISC.VOB vob")}));
    EXPECT_EQ(expand({"c.vob"}, true), QStringList{QStringLiteral("c.vob")});
}

TEST_F(MovieCandidatesTest, WhatCannotBeLookedAtIsTold)
{
    EXPECT_EQ(expand({"missing", "b.xyz"}), QStringList{QStringLiteral("b.xyz")});
    EXPECT_EQ(heard, QStringList{QStringLiteral("missing lstat error: No such file or directory")});
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can take another identity";
    }
    QFile::setPermissions(path("films"), QFile::ReadOwner);
    QFile::setPermissions(folder.path(), QFile::Permissions(0x7755));
    ASSERT_EQ(seteuid(65534), 0);
    EXPECT_EQ(expand({"films"}), QStringList());
    ASSERT_EQ(seteuid(0), 0);
    EXPECT_EQ(heard, QStringList{QStringLiteral("films Permission denied")});
}

} // namespace
