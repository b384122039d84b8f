#include "app/QuitSignals.h"

#include <QEventLoop>

#include <gtest/gtest.h>

namespace {

TEST(QuitSignalsTest, SignalsAskOnTheEventLoopAndTheOldWaysComeBack)
{
    struct sigaction before = {};
    sigaction(SIGTERM, nullptr, &before);
    const auto hangUpBefore = std::signal(SIGHUP, SIG_IGN);
    {
        QEventLoop loop;
        int requests = 0;
        const QuitSignals signals([&] {
            ++requests;
            loop.quit();
        });
        std::raise(SIGHUP); // stays ignored
        for (const int signal : {SIGINT, SIGTERM}) {
            requests = 0;
            std::raise(signal);
            EXPECT_EQ(requests, 0) << "in the signal handler";
            loop.exec();
            EXPECT_EQ(requests, 1);
        }
        QEventLoop().processEvents();
        EXPECT_EQ(requests, 1);
    }
    struct sigaction after = {};
    sigaction(SIGTERM, nullptr, &after);
    EXPECT_EQ(after.sa_handler, before.sa_handler);
    EXPECT_EQ(std::signal(SIGHUP, hangUpBefore), SIG_IGN);
}

} // namespace
