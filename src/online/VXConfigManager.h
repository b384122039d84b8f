#pragma once

class UserDefaults;

/// The two feature flags that the maker's service can set. Owned by the program's main; safe on any thread.
class VXConfigManager {
public:
    explicit VXConfigManager(UserDefaults &store) : defaults(store) {}

    /// True, whatever is stored: the stored flags wait for a release that honours them.
    bool supportVOB() const;
    /// Stores the flag and writes it to disk.
    void setSupportVOB(bool supported);

    /// True, whatever is stored.
    bool experimental() const;
    /// Stores the flag and writes it to disk.
    void setExperimental(bool experimental);

private:
    UserDefaults &defaults;
};
