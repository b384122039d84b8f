#pragma once

#include <chrono>
#include <memory>

class Bundle;
class HttpExchange;
class ServiceUrl;
class UserDefaults;
struct HttpAnswer;

/// The two feature flags that the maker's service can set. The window's is owned by AppDelegate; others look in for a
/// moment. Safe on any thread, but for getOnlineConfig. What the program does not call belongs to the vocabulary.
class VXConfigManager {
public:
    explicit VXConfigManager(UserDefaults &defaults);
    /// A request that still runs is aborted.
    ~VXConfigManager();
    VXConfigManager(const VXConfigManager &) = delete;
    VXConfigManager &operator=(const VXConfigManager &) = delete;

    /// True, whatever is stored: the stored flags wait for a release that honours them.
    bool supportVOB() const;
    /// Stores the flag and writes it to disk.
    void setSupportVOB(bool supported);

    /// True, whatever is stored.
    bool experimental() const;
    /// Stores the flag and writes it to disk.
    void setExperimental(bool experimental);

    /// Asks the service for the flags, and stores what it answers when it does. Failing leaves a line in the log and
    /// the flags as they are. Main thread.
    void getOnlineConfig(const ServiceUrl &service, const Bundle &bundle,
                         std::chrono::milliseconds timeout = std::chrono::seconds(15));

private:
    void takeAnswer(const HttpAnswer &answer);

    UserDefaults &defaults_;
    std::unique_ptr<HttpExchange> request_;
};
