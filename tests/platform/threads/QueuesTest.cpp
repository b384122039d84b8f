#include "platform/threads/MainQueue.h"
#include "platform/threads/NotificationCenter.h"
#include "platform/threads/SerialQueue.h"

#include <QCoreApplication>
#include <QThread>

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <set>
#include <thread>

using namespace Qt::StringLiterals;

using testing::ElementsAre;

TEST(SerialQueueTest, DoesAllOfItsWorkInOrderOnOneThreadOfItsOwn)
{
    std::vector<int> done; // no lock: the queue's order is all that guards it
    std::set<Qt::HANDLE> threads{QThread::currentThreadId()};
    {
        SerialQueue queue(u"a label longer than names of threads"_s);
        for (int number = 0; number < 3; ++number) {
            queue.async([&, number] {
                done.push_back(number);
                threads.insert(QThread::currentThreadId());
            });
        }
        queue.async([&] { queue.async([&done] { done.push_back(3); }); });
    } // waits, also for work that work has added
    EXPECT_THAT(done, ElementsAre(0, 1, 2, 3));
    EXPECT_EQ(threads.size(), 2U);
}

TEST(MainQueueTest, WorkOfEachThreadIsDoneInItsOrderOnTheMainThread)
{
    MainQueue queue;
    std::array<std::vector<int>, 2> done; // touched on the main thread only
    const auto feed = [&](std::vector<int> &numbers) {
        for (int number = 0; number < 500; ++number) {
            queue.async([&numbers, number] {
                EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
                numbers.push_back(number);
            });
        }
    };
    const std::jthread first([&] { feed(done[0]); });
    const std::jthread second([&] { feed(done[1]); });
    while (done[0].size() + done[1].size() < 1000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_TRUE(std::ranges::is_sorted(done[0]) && std::ranges::is_sorted(done[1]));
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

TEST(NotificationCenterTest, CallsThoseWhoObserveTheNameAtThatMomentWhoMayEndMeanwhile)
{
    auto center = std::make_unique<NotificationCenter>();
    std::string heard;
    NotificationCenter::Observation first;
    NotificationCenter::Observation second;
    NotificationCenter::Observation late;
    first = center->observe(u"name"_s, [&] {
        heard += "first ";
        second.reset();
        late = center->observe(u"name"_s, [&] { heard += "late "; });
        first.reset();
    });
    second = center->observe(u"name"_s, [&] { heard += "second "; });
    const auto other = center->observe(u"other"_s, [&] { heard += "other "; });
    center->post(u"name"_s);
    EXPECT_EQ(heard, "first ");
    center->post(u"name"_s);
    EXPECT_EQ(heard, "first late ");
    center.reset(); // before its observations
}
