#include "app/window/MacAppHelper.h"

#include "Shared/HostIdentity.h"
#include "online/HttpExchange.h"
#include "online/ServiceUrl.h"

using namespace Qt::StringLiterals;

MacAppHelper::MacAppHelper(const Services &services) : services_(services) {}

MacAppHelper::~MacAppHelper() = default;

void MacAppHelper::awakeFromNib()
{
    if (services_.sender.hasPendingCrashReport()) {
        services_.sender.handleCrashReport(this);
    }
    reportStartup();
}

void MacAppHelper::handleCrashReport(const std::optional<CrashReportObject> & /*report*/)
{
    services_.sender.noticeHandleCrashReportSuccess();
}

void MacAppHelper::reportStartup()
{
    const QString query = u"appver=" + GlobalFun::getAppBuildVersion(services_.bundle) + u"&appid=" +
                          GlobalFun::bundleID(services_.bundle) + u"&sysver=" + GlobalFun::getSystemVersionString() +
                          u"&channelid=5&userid=" + GlobalFun::getGUID(services_.defaults);
    const QUrl url = services_.service.page(u"common_task/reportstartup.php"_s, query);
    if (!url.isEmpty()) {
        startupReport_ = std::make_unique<HttpExchange>(HttpRequest{url, {}}, [](const HttpAnswer & /*ignored*/) {});
    }
}
