// The settings file: its syntax, and what becomes of a file that is broken, out of reach or shared.
#include "platform/store/IniText.h"
#include "platform/store/UserDefaults.h"
#include "support/ScratchFolder.h"
#include "support/SmallDisk.h"
#include "support/WithoutPrivileges.h"

#include <QProcess>
#include <QSettings>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <random>
#include <vector>

using namespace Qt::StringLiterals;

/// Random text, rich in what the syntax treats specially.
static QString anyText(std::mt19937 &random)
{
    static constexpr QStringView special = u"@\\\"\",;=[]#% \t\n\r/()xabfA019\0\x1B\u00A0\u0085\uFEFF\uFFFF\u2028";
    QString out;
    for (auto length = random() % 12; length > 0; --length) {
        out += random() % 4 ? special[qsizetype(random()) % special.size()] : QChar(char16_t(random()));
    }
    return random() % 8 ? out : u"@ByteArray("_s + out + u')';
}

static QVariant anyValue(std::mt19937 &random)
{
    const QString text = anyText(random);
    const QByteArray bytes(reinterpret_cast<const char *>(text.utf16()), 2 * text.size());
    const QVariantList list{bytes, anyText(random), QString()};
    return QVariantList{text, bytes, list.first(qsizetype(random() % 4))}.at(qsizetype(random() % 3));
}

TEST(IniText, ReadsWhatItWroteAndSurvivesTheRest)
{
    std::mt19937 random{20240229};
    for (int round = 0; round < 3000; ++round) {
        const QVariantMap values{{u'k' + anyText(random), anyValue(random)}, {u"l"_s, anyValue(random)}};
        const auto content = IniText::parse(IniText::write(values));
        ASSERT_TRUE(content.complete && content.values == values) << IniText::write(values).constData();
        const QByteArray hostile = "a=" + anyText(random).toUtf8() + "\n[" + anyValue(random).toByteArray();
        const auto rest = IniText::parse(hostile).values;
        ASSERT_EQ(IniText::parse(IniText::write(rest)).values, rest) << hostile.toHex().constData();
    }
}

TEST(IniText, IsTheSyntaxOfQSettings)
{
    const QVariantMap values{{u"group/ключ%"_s, u"@home/Füße 🎬"_s},
                             {u"control, \"quoted\""_s, u"\1f\nline; \"30\" = \\x1f\r\t\x7F"_s},
                             {u"bytes"_s, QByteArray("\0\x01\xFF\"),;\x80z", 9)},
                             {u"list"_s, QVariantList{u"a,b"_s, QByteArray("\xFF"), QString()}}};
    const ScratchFolder folder;
    QSettings theirs(folder.path("theirs.ini"), QSettings::IniFormat);
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        theirs.setValue(value.key(), *value);
    }
    theirs.sync();
    EXPECT_EQ(IniText::parse(folder.read("theirs.ini")).values, values);
}

TEST(StoreFile, IsKeptAsideWhenNotUnderstood)
{
    const std::vector<std::pair<QByteArray, bool>> cases{
        {"; comment\r\n[General]\r\nguid=x\r\n\r\n", true},
        {"\xEF\xBB\xBFguid=x\nOutputFolderKey=/mnt/\xFF", true}, // a path may be anything
        {"guid=x\n" + QByteArray(512, '\0'), false},             // what a power failure leaves
        {"guid=x\nOutputFolderKey", false},
        {"guid=x\n=1", false},
        {"guid=x\nOutputFolderKey=\"/home/ad", false},
        {"guid=x\nOutputFolderKey=C:\\", false},
        {"guid=x\nkey=1\nkey=2", false},
        {"guid=x\nlist=@ByteArray(映)", false},
        {"guid=x\n[Sect", false},
        // nested so deep that whoever builds it runs out of stack
        {"guid=x\nlist=@Variant(" + QByteArray("\\0\\0\\0\\x9\\0\\0\\0\\x1").repeated(100000) + ")", false},
    };
    for (const auto &[contents, understood] : cases) {
        SCOPED_TRACE(contents.left(40).constData());
        const ScratchFolder folder;
        folder.write("s.ini", contents);
        UserDefaults defaults(folder.path("s.ini"));
        EXPECT_EQ(defaults.textValue(u"guid"), u"x");
        EXPECT_EQ(folder.read("s.ini"), contents);
        EXPECT_EQ(folder.names().contains(u"s.ini.broken"), !understood);
        defaults.setBool(u"more", true);
        EXPECT_TRUE(defaults.synchronize());
        EXPECT_EQ(folder.names().size(), understood ? 1 : 2); // one copy is enough
        EXPECT_TRUE(understood || folder.read("s.ini.broken") == contents);
        EXPECT_EQ(defaults.textValue(u"guid"), u"x");
    }
}

TEST(StoreFile, IsKeptAsideWhenItBreaksWhileInUse)
{
    const ScratchFolder folder;
    folder.write("s.ini", "first break");
    UserDefaults defaults(folder.path("s.ini"));
    folder.write("s.ini", "second, longer break");
    testing::internal::CaptureStderr();
    defaults.setBool(u"k", true);
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_NE(testing::internal::GetCapturedStderr().find("s.ini.broken(1)"), std::string::npos);
    EXPECT_EQ(folder.read("s.ini.broken"), "first break");
    EXPECT_EQ(folder.read("s.ini.broken(1)"), "second, longer break");
}

TEST(StoreFile, StaysWhenBrokenAndNoCopyFits)
{
    const ScratchFolder folder;
    const SmallDisk disk(folder.bytes(), 64);
    if (!disk.isMounted()) {
        GTEST_SKIP() << "mounting a tmpfs is refused here";
    }
    const QByteArray broken = "guid=x\nbroken" + QByteArray(40000, '.');
    folder.write("s.ini", broken);
    UserDefaults defaults(folder.path("s.ini"));
    defaults.setBool(u"k", true); // would fit
    EXPECT_FALSE(defaults.synchronize());
    EXPECT_EQ(folder.read("s.ini"), broken);
    EXPECT_EQ(folder.names(), QStringList{u"s.ini"_s});
}

TEST(StoreFile, MayBeReadOnly)
{
    const ScratchFolder folder;
    folder.write("s.ini", "guid=x\n");
    folder.setMode(0555);
    UserDefaults defaults(folder.path("s.ini"));
    {
        const WithoutPrivileges user;
        defaults.setText(u"k", u"new"_s);
        EXPECT_FALSE(defaults.synchronize());
    }
    EXPECT_EQ(defaults.textValue(u"k"), u"new");
    EXPECT_EQ(folder.read("s.ini"), "guid=x\n");
    EXPECT_TRUE(defaults.synchronize()); // what could not be written is not forgotten
    EXPECT_EQ(folder.read("s.ini"), "[General]\nguid=x\nk=new\n");
}

TEST(StoreFile, IsNotReplacedWhenItCannotBeRead)
{
    const ScratchFolder folder;
    folder.write("secret.ini", "guid=x\n");
    folder.setMode(0777); // not the folder is in the way
    folder.setMode(0, "secret.ini");
    ASSERT_EQ(::mkfifo(folder.bytes("fifo.ini").constData(), 0666), 0);
    folder.makeFolder("folder.ini/x");
    const WithoutPrivileges user;
    for (const QString &name : folder.names()) {
        UserDefaults defaults(folder.path(name.toLatin1()));
        defaults.setText(u"k", u"new"_s);
        EXPECT_FALSE(defaults.synchronize()) << qPrintable(name);
        EXPECT_EQ(defaults.textValue(u"k"), u"new");
    }
    EXPECT_EQ(folder.names().size(), 3);
}

TEST(StoreFile, IsSharedWithOtherProcesses)
{
    const ScratchFolder folder;
    const QString path = folder.path("s.ini");
    UserDefaults defaults(path);
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
    EXPECT_EQ(folder.names(), QStringList{u"s.ini"_s});
}
