#pragma once

#include "online/crash/CrashReportSender.h"
#include "online/crash/CrashReportSenderDelegate.h"

#include <memory>
#include <optional>

class Bundle;
class HttpExchange;
class ServiceUrl;
class UserDefaults;

/// What the program does for its maker at launch: it takes the report of an earlier crash off the disk, and says that
/// it has been started. Owned by main, with the window; main thread.
class MacAppHelper final : private CrashReportSenderDelegate {
public:
    /// All of it must outlive this. With the sender the crash handlers are there already.
    struct Services {
        CrashReportSender &sender;
        const ServiceUrl &service;
        const Bundle &bundle;
        UserDefaults &defaults;
    };

    explicit MacAppHelper(const Services &services);
    /// A report of the start that is still on its way is dropped.
    ~MacAppHelper() override;
    MacAppHelper(const MacAppHelper &) = delete;
    MacAppHelper &operator=(const MacAppHelper &) = delete;

    /// The main interface is loaded: does all of it, in order.
    void awakeFromNib();
    /// Tells the service which version has been started, on which system, by which installation. Nobody hears whether
    /// that has worked.
    void reportStartup();

private:
    /// Reports are read and thrown away: nothing is sent of them.
    void handleCrashReport(const std::optional<CrashReportObject> &report) override;

    Services services_;
    std::unique_ptr<HttpExchange> startupReport_;
};
