#pragma once

#include "Shared/TimeFormat.h"

#include <QString>

#include <chrono>

/// How long a job will still take, told from how long what is done has taken. Starts with its construction.
class RemainingTime {
public:
    /// In words for the user; empty while nothing is done. `done` is the share of the whole, 0 to 1.
    QString after(double done) const
    {
        if (done <= 0.0) {
            return {};
        }
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - started_;
        return GlobalFun::getEstimateStrBySecond(elapsed.count() / done * (1.0 - done));
    }

private:
    std::chrono::steady_clock::time_point started_ = std::chrono::steady_clock::now();
};
