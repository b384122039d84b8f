#include "online/VXConfigManager.h"

#include "Shared/HostIdentity.h"
#include "Shared/PreferenceKeys.h"
#include "online/HttpExchange.h"
#include "online/ServiceUrl.h"
#include "platform/Log.h"
#include "platform/store/Bundle.h"
#include "platform/store/UserDefaults.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

using namespace Qt::StringLiterals;

namespace {

/// False only when the flag is false or 0. Anything else, also a missing flag, leaves it on.
bool isOn(const QJsonValue &flag)
{
    return flag.isDouble() ? flag.toDouble() != 0 : flag.toBool(true);
}

} // namespace

VXConfigManager::VXConfigManager(UserDefaults &defaults) : defaults_(defaults) {}

VXConfigManager::~VXConfigManager() = default;

bool VXConfigManager::supportVOB() const
{
    defaults_.boolValue(PreferenceKeys::supportVob);
    return true;
}

void VXConfigManager::setSupportVOB(bool supported)
{
    defaults_.setBool(PreferenceKeys::supportVob, supported);
    defaults_.synchronize();
}

bool VXConfigManager::experimental() const
{
    defaults_.boolValue(PreferenceKeys::experimental);
    return true;
}

void VXConfigManager::setExperimental(bool experimental)
{
    defaults_.setBool(PreferenceKeys::experimental, experimental);
    defaults_.synchronize();
}

void VXConfigManager::getOnlineConfig(const ServiceUrl &service, const Bundle &bundle,
                                      std::chrono::milliseconds timeout)
{
    const QString query = u"appver=" + bundle.value(u"CFBundleShortVersionString"_s) + u"&appid=" +
                          bundle.identifier() + u"&sysver=" + GlobalFun::getSystemVersionString() + u"&appstore=0";
    const QUrl url = service.page(u"common_task/getconfig.php"_s, query);
    if (!url.isEmpty()) {
        request_ = std::make_unique<HttpExchange>(
            HttpRequest{url, {}}, [this](const HttpAnswer &answer) { takeAnswer(answer); }, timeout);
    }
}

void VXConfigManager::takeAnswer(const HttpAnswer &answer)
{
    if (!answer.body) {
        qCWarning(lcTessarine).noquote() << "get configure error :" << answer.body.error();
        return;
    }
    // An answer that is not a JSON object reads like one without members.
    const QJsonObject flags = QJsonDocument::fromJson(*answer.body).object();
    setSupportVOB(isOn(flags.value(PreferenceKeys::supportVob)));
    setExperimental(isOn(flags.value(PreferenceKeys::experimental)));
}
