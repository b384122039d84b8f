#pragma once

#include <QString>
#include <QUrl>

class Bundle;

/// Where the maker's service is on the web. A value; an empty one switches all requests off.
class ServiceUrl {
public:
    ServiceUrl() = default;
    explicit ServiceUrl(const QString &baseUrl) : base_(baseUrl.trimmed()) {}
    /// What the environment variable TESSARINE_SERVICE_URL says, if it is there, else the bundle's "ServiceURL".
    static ServiceUrl ofThisProgram(const Bundle &bundle);

    /// The address of a page below the base, with a query that is taken as it stands. Empty when there is no base; and,
    /// with a line in the log, when base and query make no web address.
    QUrl page(const QString &path, const QString &query) const;

private:
    QString base_;
};
