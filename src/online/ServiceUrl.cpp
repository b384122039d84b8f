#include "online/ServiceUrl.h"

#include "online/HttpExchange.h"
#include "platform/Log.h"
#include "platform/store/Bundle.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char *environmentVariable = "TESSARINE_SERVICE_URL";

} // namespace

ServiceUrl ServiceUrl::ofThisProgram(const Bundle &bundle)
{
    return ServiceUrl(qEnvironmentVariableIsSet(environmentVariable) ? qEnvironmentVariable(environmentVariable)
                                                                     : bundle.value(u"ServiceURL"_s));
}

QUrl ServiceUrl::page(const QString &path, const QString &query) const
{
    if (base_.isEmpty()) {
        return {};
    }
    const QString slash = base_.endsWith(u'/') ? QString() : u"/"_s;
    const QString address = base_ + slash + path + u'?' + query;
    QUrl url(address, QUrl::StrictMode);
    if (!isWebAddress(QUrl(base_, QUrl::StrictMode)) || !isWebAddress(url)) {
        // Quoted, since what makes it invalid may be a line break.
        qCWarning(lcTessarine) << "nothing is sent, this is no web address:" << address;
        url.clear();
    }
    return url;
}
