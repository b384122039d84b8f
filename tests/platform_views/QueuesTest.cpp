#include "platform/MainQueue.h"
#include "platform/NotificationCenter.h"
#include "platform/SerialQueue.h"

#include <QCoreApplication>
#include <QThread>

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <numeric>
#include <thread>

using testing::ElementsAre;

namespace {

TEST(SerialQueueTest, DoesAllOfItsWorkInOrderOnOneThreadOfItsOwn)
{
    std::vector<int> done; // no lock: the queue's order is all that guards it
    std::vector<Qt::HANDLE> threads;
    {
        SerialQueue queue(QStringLiteral("a label longer than names of threads"));
        for (int number = 0; number < 3; ++number) {
            queue.async([&, number] {
                done.push_back(number);
                threads.push_back(QThread::currentThreadId());
                queue.async([&done, number] { done.push_back(10 + number); });
            });
        }
    } // waits, also for work that work has added
    // Added work falls in anywhere behind its adder; each kind keeps its own order.
    std::stable_partition(done.begin(), done.end(), [](int number) { return number < 10; });
    EXPECT_THAT(done, ElementsAre(0, 1, 2, 10, 11, 12));
    EXPECT_THAT(threads, testing::Each(threads.front()));
    EXPECT_NE(threads.front(), QThread::currentThreadId());
}

TEST(MainQueueTest, WorkOfEachThreadIsDoneInItsOrderOnTheMainThread)
{
    constexpr int pieces = 500;
    MainQueue queue;
    std::vector<int> fromFirst; // touched on the main thread only
    std::vector<int> fromSecond;
    std::atomic<int> left = 2 * pieces;
    const auto feed = [&](std::vector<int> &done) {
        for (int number = 0; number < pieces; ++number) {
            queue.async([&, number] {
                done.push_back(QThread::currentThread() == QCoreApplication::instance()->thread() ? number : -1);
                --left;
            });
        }
    };
    const std::jthread first([&] { feed(fromFirst); });
    const std::jthread second([&] { feed(fromSecond); });
    while (left > 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::vector<int> inOrder(pieces);
    std::iota(inOrder.begin(), inOrder.end(), 0);
    EXPECT_EQ(fromFirst, inOrder);
    EXPECT_EQ(fromSecond, inOrder);
}

TEST(MainQueueTest, WorkThatAddsWorkDoesNotKeepTheEventLoop)
{
    MainQueue queue;
    int runs = 0;
    std::function<void()> again = [&] {
        ++runs;
        queue.async(again);
    };
    queue.async(again);
    QCoreApplication::sendPostedEvents();
    EXPECT_GE(runs, 1);
    again = nullptr;
}

TEST(MainQueueTest, WorkThatIsWaitingAtTheEndIsDropped)
{
    auto held = std::make_shared<bool>(false);
    {
        MainQueue queue;
        queue.async([held] { *held = true; });
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(*held);
    EXPECT_EQ(held.use_count(), 1);
}

TEST(NotificationCenterTest, CallsThoseWhoObserveTheNameAtThatMoment)
{
    NotificationCenter center;
    std::vector<std::string> heard;
    NotificationCenter::Observation second;
    NotificationCenter::Observation late;
    const auto first = center.observe(QStringLiteral("name"), [&] {
        heard.push_back("first");
        second.reset();
        if (!late)
            late = center.observe(QStringLiteral("name"), [&] { heard.push_back("late"); });
    });
    second = center.observe(QStringLiteral("name"), [&] { heard.push_back("second"); });
    const auto other = center.observe(QStringLiteral("other"), [&] { heard.push_back("other"); });

    center.post(QStringLiteral("name"));
    EXPECT_THAT(heard, ElementsAre("first"));
    center.post(QStringLiteral("name"));
    EXPECT_THAT(heard, ElementsAre("first", "first", "late"));
}

TEST(NotificationCenterTest, ObserverMayEndItselfAndOutliveTheCentre)
{
    auto center = std::make_unique<NotificationCenter>();
    int calls = 0;
    NotificationCenter::Observation observation;
    observation = center->observe(QStringLiteral("name"), [&] {
        observation.reset();
        ++calls;
    });
    const auto outliving = center->observe(QStringLiteral("name"), [&] { ++calls; });
    center->post(QStringLiteral("name"));
    center->post(QStringLiteral("name"));
    EXPECT_EQ(calls, 3);
    center.reset();
}

} // namespace
