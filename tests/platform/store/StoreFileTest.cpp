// The settings file: what it holds, and what becomes of one that is broken, out of reach or shared.
#include "platform/store/UserDefaults.h"
#include "support/CapturedLog.h"
#include "support/ScratchFolder.h"
#include "support/SmallDisk.h"
#include "support/WithoutPrivileges.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <vector>

using namespace Qt::StringLiterals;

static QJsonObject jsonIn(const QByteArray &contents)
{
    return QJsonDocument::fromJson(contents).object();
}

TEST(StoreFile, IsKeptAsideWhenNotUnderstood)
{
    const std::vector<std::pair<QByteArray, bool>> cases{
        {"\xEF\xBB\xBF{\"guid\":\"x\"}\r\n", true},
        {R"({"null":null,"a:\"b":{"c":[1,{"d":":"}]},"half":0.5,"path":"/mnt/\udcff"})", true},
        {"\n", true},
        {"{\"guid\":\"x\"}" + QByteArray(512, '\0'), false}, // what a power failure leaves
        {"{\"guid\":\"x\",", false},
        {R"({"guid":"x","k":{"l":1,"l":2}})", false},
        {R"({"guid":"x","k":1e999})", false},
        {"{\"guid\":\"\xFF\"}", false},
        {"[General]\nguid=x\n", false},
        // nested so deep that whoever builds it runs out of stack
        {"{\"guid\":" + QByteArray(100'000, '[') + QByteArray(100'000, ']') + '}', false},
    };
    for (const auto &[contents, understood] : cases) {
        SCOPED_TRACE(contents.left(40).constData());
        const ScratchFolder folder;
        folder.write("s.json", contents);
        UserDefaults defaults(folder.path("s.json"));
        EXPECT_EQ(folder.read("s.json"), contents);
        EXPECT_EQ(folder.names().contains(u"s.json.broken"), !understood);
        defaults.setBool(u"more", true);
        EXPECT_TRUE(defaults.synchronize());
        EXPECT_EQ(folder.names().size(), understood ? 1 : 2); // one copy is enough
        EXPECT_TRUE(understood || folder.read("s.json.broken") == contents);
        QJsonObject expected = jsonIn(contents);
        expected[u"more"_s] = true;
        EXPECT_EQ(jsonIn(folder.read("s.json")), expected);
        for (const QString &name : folder.names()) {
            EXPECT_EQ(std::filesystem::status(folder.bytes(name.toLatin1()).toStdString()).permissions(),
                      std::filesystem::perms(0600));
        }
    }
}

TEST(StoreFile, IsKeptAsideWhenItBreaksWhileInUse)
{
    const ScratchFolder folder;
    folder.write("s.json", "first break");
    UserDefaults defaults(folder.path("s.json"));
    folder.write("s.json", "{\n\"second\":\nbreak}");
    const CapturedLog log;
    defaults.setBool(u"k", true);
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_TRUE(CapturedLog::lines.value(0).endsWith(u" in line 3; its contents are kept in " +
                                                     folder.path("s.json.broken(1)")))
        << CapturedLog::lines.join(u'\n').toStdString();
    EXPECT_EQ(folder.read("s.json.broken"), "first break");
    EXPECT_EQ(folder.read("s.json.broken(1)"), "{\n\"second\":\nbreak}");
}

TEST(StoreFile, StaysWhenBrokenAndNoCopyFits)
{
    const ScratchFolder folder;
    const QByteArray broken = "{\"guid\":\"x\",broken" + QByteArray(40000, '.');
    folder.write("s.json", broken);
    const SmallDisk disk(20000);
    UserDefaults defaults(folder.path("s.json"));
    defaults.setBool(u"k", true); // would fit
    EXPECT_FALSE(defaults.synchronize());
    EXPECT_EQ(folder.read("s.json"), broken);
    EXPECT_EQ(folder.names(), QStringList{u"s.json"_s});
}

TEST(StoreFile, MayBeOutOfReachForReadingOrWriting)
{
    const ScratchFolder folder;
    folder.write("secret.json", R"({"guid":"x"})");
    folder.write("closed/s.json", R"({"guid":"x"})");
    folder.setMode(0, "secret.json");
    folder.setMode(0555, "closed");
    folder.setMode(0777); // not the folder is in the way
    ASSERT_EQ(::mkfifo(folder.bytes("fifo.json").constData(), 0666), 0);
    folder.makeFolder("folder.json/x");
    UserDefaults closed(folder.path("closed/s.json"));
    {
        const WithoutPrivileges user;
        for (const char *name : {"secret.json", "fifo.json", "folder.json"}) {
            UserDefaults defaults(folder.path(name));
            defaults.setText(u"k", u"new"_s);
            EXPECT_FALSE(defaults.synchronize()) << name;
            EXPECT_EQ(defaults.textValue(u"k"), u"new");
        }
        closed.setText(u"k", u"new"_s);
        EXPECT_FALSE(closed.synchronize());
    }
    EXPECT_EQ(folder.names().size(), 4);
    EXPECT_EQ(folder.read("closed/s.json"), R"({"guid":"x"})");
    EXPECT_TRUE(closed.synchronize()); // what could not be written is not forgotten
    EXPECT_EQ(folder.read("closed/s.json"), "{\n    \"guid\": \"x\",\n    \"k\": \"new\"\n}\n");
}

TEST(StoreFile, IsSharedWithOtherProcesses)
{
    QVariantList all{true, false, 9223372036854775807LL, -9007199254740993LL, 12.5, QVariantList{QByteArray()}};
    all << u"base64:AA=="_s << u"base64:!"_s << u"text:base64:"_s << PathText::fromBytes("/mnt/\xFF\xF0\x9F\x8E\xAC");
    constexpr QStringView special = u"\\\"\",:{}[]% \t\n\r/u0\0\x1B\u00A0\u0085\uFEFF\uFFFF\u2028";
    for (int unit = 0; unit < 0x200; ++unit) { // surrogates without their other half among them
        const QChar before = special[unit % special.size()];
        all << QString(before + QChar(0xD800 + 4 * unit) + before)
            << QByteArray::number(unit).append(char(unit)).append('\0');
    }
    const ScratchFolder folder;
    const QString path = folder.path("s.json");
    UserDefaults defaults(path);
    defaults.setArray(u"all", all);
    defaults.setInteger(u"one7", -1); // theirs is the later value
    EXPECT_TRUE(defaults.synchronize());
    QProcess one;
    QProcess two;
    one.start(QStringLiteral(STORE_CHILD), {path, u"one"_s});
    two.start(QStringLiteral(STORE_CHILD), {path, u"two"_s});
    EXPECT_TRUE(one.waitForFinished(-1) && two.waitForFinished(-1));
    EXPECT_EQ(one.exitCode() + two.exitCode(), 0);
    defaults.setBool(u"mine", true);
    EXPECT_TRUE(defaults.synchronize());
    for (int i = 1; i < 100; ++i) {
        EXPECT_TRUE(defaults.int32Value(u"one%1"_s.arg(i)) == i && defaults.int32Value(u"two%1"_s.arg(i)) == i) << i;
    }
    const QVariantList copied = defaults.arrayValue(u"twoall").value_or(QVariantList());
    ASSERT_EQ(copied.size(), all.size());
    for (qsizetype i = 0; i < all.size(); ++i) {
        EXPECT_TRUE(copied.at(i) == all.at(i) && copied.at(i).typeId() == all.at(i).typeId()) << i;
    }
    EXPECT_EQ(folder.names(), QStringList{u"s.json"_s});
}
