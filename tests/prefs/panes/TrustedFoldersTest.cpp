#include "prefs/TrustedFolders.h"

#include "Shared/PreferenceKeys.h"
#include "platform/desktop/OpenPanel.h"
#include "platform/files/FolderBookmarks.h"
#include "platform/store/UserDefaults.h"
#include "platform/threads/MainQueue.h"
#include "prefs/panes/VXTrustedPathViewCtl.h"
#include "support/ScratchFolder.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <gmock/gmock.h>

#include <functional>
#include <thread>

using namespace Qt::StringLiterals;

using testing::ElementsAre;

/// Chooses in the user's place.
struct ChosenBefore {
    QStringList paths;
    OpenPanelRequest asked;
    void operator()(const OpenPanelRequest &request, const std::function<void(const QStringList &paths)> &chosen)
    {
        asked = request;
        chosen(paths);
    }
};

struct TrustedFoldersTest : testing::Test {
    /// The folders that the store remembers, stale ones too.
    QStringList remembered() const
    {
        QStringList paths;
        const UserDefaults read(storePath);
        for (const QVariant &entry : read.arrayValue(PreferenceKeys::bookmarks).value_or(QVariantList())) {
            const auto folder = bookmarks.resolve(entry.toByteArray());
            paths << (folder ? folder->path : u"?"_s);
        }
        return paths;
    }

    const ScratchFolder scratch;
    const QString storePath = scratch.path("settings.json");
    const QString a = scratch.makeFolder("a");
    const QString b = scratch.makeFolder("b \xFF%"); // no text, and in need of escaping
    UserDefaults defaults{storePath};
    const PathBookmarks bookmarks{};
    TrustedFolders folders{defaults, bookmarks};
};

TEST_F(TrustedFoldersTest, AreRememberedOnceInTheOrderGranted)
{
    for (const QString &path : {b, a, b, scratch.path("missing"), QString()}) {
        folders.addToBookmarkWithURL(path);
    }
    EXPECT_THAT(folders.items(), ElementsAre(b, a));
    EXPECT_THAT(remembered(), ElementsAre(b, a));
    defaults.setText(PreferenceKeys::bookmarks, u"no array"_s);
    folders.load(); // leaves the present list
    EXPECT_THAT(folders.items(), ElementsAre(b, a));
}

TEST_F(TrustedFoldersTest, WhatLeadsNowhereIsLeftOutAndForgottenAtTheNextCommit)
{
    const QByteArray good = *bookmarks.BookmarkDataForURL(a);
    const QByteArray gone = *bookmarks.BookmarkDataForURL(scratch.makeFolder("gone"));
    std::filesystem::remove(scratch.bytes("gone").toStdString());
    const QVariantList entries{u"text"_s, QByteArray("{"), QByteArray("{\"kind\":\"path\"}"), gone, good, good};
    defaults.setArray(PreferenceKeys::bookmarks, entries);
    folders.load();
    EXPECT_THAT(folders.items(), ElementsAre(a));
    folders.addToBookmarkWithURL(b); // keeps the entries that it does not understand
    EXPECT_EQ(remembered().size(), entries.size() + 1);
    std::filesystem::remove(scratch.bytes("a").toStdString());
    folders.commit();
    EXPECT_THAT(folders.items(), ElementsAre(a, b));
    EXPECT_THAT(remembered(), ElementsAre(b));
}

TEST_F(TrustedFoldersTest, MayBeAddedOnSeveralThreadsAtOnce)
{
    std::vector<std::jthread> threads;
    for (const char number : {'1', '2', '3'}) {
        threads.emplace_back([this, path = scratch.makeFolder(QByteArray("t") + number)] {
            folders.addToBookmarkWithURL(path);
            folders.addToBookmarkWithURL(a);
        });
    }
    threads.clear();
    EXPECT_EQ(folders.items().size(), 4);
    EXPECT_EQ(remembered(), folders.items());
}

struct TrustedPathPaneTest : TrustedFoldersTest {
    QTableView &table() { return *pane.view().findChild<QTableView *>(); }
    QPushButton *button(const char *name) { return pane.view().findChild<QPushButton *>(QLatin1StringView(name)); }

    ChosenBefore panel;
    MainQueue mainQueue;
    VXTrustedPathViewCtl pane{folders, std::ref(panel), mainQueue};
};

TEST_F(TrustedPathPaneTest, AddsFoldersAtOnceAndRemovesSelectedOnesAtTheCommit)
{
    defaults.setArray(PreferenceKeys::bookmarks, {*bookmarks.BookmarkDataForURL(a)});
    EXPECT_EQ(table().model()->index(0, 0).data(), a);
    std::jthread([this] { folders.addToBookmarkWithURL(b); }).join();
    QCoreApplication::processEvents();
    EXPECT_TRUE(table().model()->index(1, 0).data().toString().contains(QChar(QChar::ReplacementCharacter)));
    panel.paths = {scratch.makeFolder("c"), a};
    QTest::mouseClick(button("btnAdd"), Qt::LeftButton);
    EXPECT_TRUE(panel.asked.folders && panel.asked.multiple && !panel.asked.files);
    EXPECT_THAT(remembered(), ElementsAre(a, b, scratch.path("c")));
    EXPECT_FALSE(button("btnRemove")->isEnabled());
    table().selectRow(1);
    QTest::mouseClick(button("btnRemove"), Qt::LeftButton);
    EXPECT_FALSE(button("btnRemove")->isEnabled());
    EXPECT_EQ(remembered().size(), 3);
    EXPECT_TRUE(pane.commitEditing());
    EXPECT_THAT(remembered(), ElementsAre(a, scratch.path("c")));
}
