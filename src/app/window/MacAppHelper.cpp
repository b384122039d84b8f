#include "app/window/MacAppHelper.h"

#include "Shared/HostIdentity.h"
#include "online/HttpExchange.h"
#include "online/ServiceUrl.h"

using namespace Qt::StringLiterals;

MacAppHelper::MacAppHelper(const Services &appServices) : services(appServices) {}

MacAppHelper::~MacAppHelper() = default;

void MacAppHelper::awakeFromNib()
{
    if (services.sender.hasPendingCrashReport()) {
        services.sender.handleCrashReport(this);
    }
    reportStartup();
}

void MacAppHelper::handleCrashReport(const std::optional<CrashReportObject> & /*report*/)
{
    services.sender.noticeHandleCrashReportSuccess();
}

void MacAppHelper::reportStartup()
{
    const QString query = u"appver=" + GlobalFun::getAppBuildVersion(services.bundle) + u"&appid=" +
                          GlobalFun::bundleID(services.bundle) + u"&sysver=" + GlobalFun::getSystemVersionString() +
                          u"&channelid=5&userid=" + GlobalFun::getGUID(services.defaults);
    const QUrl url = services.service.page(u"common_task/reportstartup.php"_s, query);
    if (!url.isEmpty()) {
        startupReport = std::make_unique<HttpExchange>(HttpRequest{url, {}}, [](const HttpAnswer & /*ignored*/) {});
    }
}
