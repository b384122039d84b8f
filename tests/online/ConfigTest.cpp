#include "Shared/HostIdentity.h"
#include "online/ServiceUrl.h"
#include "online/VXConfigManager.h"
#include "platform/store/Bundle.h"
#include "platform/store/UserDefaults.h"
#include "support/CapturedLog.h"
#include "support/HttpServer.h"
#include "support/ScratchFolder.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

struct ConfigTest : testing::Test {
    /// Both flags as they are on disk.
    QList<bool> stored() const
    {
        const UserDefaults onDisk(folder.path("settings.json"));
        return {onDisk.boolValue("SupportVOBKey"), onDisk.boolValue("ExperimentalKey")};
    }
    /// Asks the server, and waits for other flags or a line in the log.
    void fetch(const QString &service)
    {
        const QList<bool> before = stored();
        config.getOnlineConfig(ServiceUrl(service), bundle, 20s);
        EXPECT_TRUE(QTest::qWaitFor([&] { return stored() != before || !CapturedLog::lines.isEmpty(); }, 30'000));
    }

    const ScratchFolder folder;
    UserDefaults defaults{folder.path("settings.json")};
    VXConfigManager config{defaults};
    const Bundle bundle{"<plist><dict><key>CFBundleShortVersionString</key><string>2.1</string>"
                        "<key>CFBundleIdentifier</key><string>org.example</string>"
                        "<key>ServiceURL</key><string>http://built.in</string></dict></plist>"};
    const CapturedLog log;
};

TEST_F(ConfigTest, AnAnswerSwitchesOffOnlyWhatItSaysIsOff)
{
    const struct {
        QByteArray body;
        bool supportVob, experimental;
    } cases[] = {
        {R"({"SupportVOBKey":false})", false, true},
        {R"({"SupportVOBKey":1e300,"ExperimentalKey":-0.0})", true, false},
        {R"({"SupportVOBKey":"false","ExperimentalKey":null})", true, true},
        {"\xef\xbb\xbf{\"ExperimentalKey\":false}", true, false},
        {"{\"ExperimentalKey\":false,\"x\":\"\xff\xfe\"}", true, true},
        {R"({"ExperimentalKey":false,"x":)" + QByteArray(100'000, '['), true, true},
        {"", true, true},
    };
    for (const auto &[body, supportVob, experimental] : cases) {
        const HttpServer server(HttpServer::answering(body));
        config.setSupportVOB(!supportVob);
        config.setExperimental(!experimental);
        fetch(server.url());
        EXPECT_EQ(stored(), (QList<bool>{supportVob, experimental})) << body.left(80).constData();
        EXPECT_TRUE(config.supportVOB() && config.experimental());
    }
    EXPECT_EQ(CapturedLog::lines, QStringList());
}

TEST_F(ConfigTest, AFailureIsALineInTheLogAndLeavesTheFlags)
{
    const HttpServer broken(HttpServer::answering("{}", "500 No"));
    config.setSupportVOB(false);
    for (const QString &service : {broken.url(), u"http://h.invalid"_s}) {
        fetch(service);
        ASSERT_EQ(CapturedLog::lines.size(), 1) << qUtf8Printable(service);
        EXPECT_TRUE(CapturedLog::lines.takeFirst().startsWith(u"get configure error : "));
        EXPECT_EQ(stored(), (QList<bool>{false, false})) << qUtf8Printable(service);
    }
}

TEST_F(ConfigTest, AsksBelowTheServicesAddress)
{
    const HttpServer server(HttpServer::answering("{}"));
    const QByteArray asked = "common_task/getconfig.php?appver=2.1&appid=org.example&sysver=" +
                             GlobalFun::getSystemVersionString().toLatin1() + "&appstore=0 HTTP/1.1\r\n";
    for (const auto &[around, path] : {std::pair{u" %1/ \n"_s, "GET /"}, {u"%1/below"_s, "GET /below/"}}) {
        config.setSupportVOB(false);
        fetch(around.arg(server.url()));
        EXPECT_TRUE(server.requests.last().startsWith(QByteArray(path + asked))) << server.requests.last().constData();
    }
    const auto page = [&] { return ServiceUrl::ofThisProgram(bundle).page(u"p"_s, u"q"_s).toString(); };
    qunsetenv("TESSARINE_SERVICE_URL");
    EXPECT_EQ(page(), u"http://built.in/p?q");
    qputenv("TESSARINE_SERVICE_URL", "http://elsewhere");
    EXPECT_EQ(page(), u"http://elsewhere/p?q");
    qputenv("TESSARINE_SERVICE_URL", "");
    EXPECT_EQ(page(), QString());
    for (const auto &[base, query] : {std::pair{u"file:///tmp"_s, u"q"_s},
                                      {u"http://[::1"_s, u"q"_s},
                                      {u"http://h"_s, u"1 2"_s},
                                      {u"http://h"_s, u"\r\nHost: b"_s}}) {
        EXPECT_TRUE(ServiceUrl(base).page(u"p"_s, query).isEmpty()) << qUtf8Printable(base + query);
    }
}
