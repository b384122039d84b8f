#include "Shared/TaskWrapper.h"

#include "support/ScriptedTool.h"

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cerrno>
#include <functional>
#include <optional>
#include <string>

using namespace testing;
using namespace std::chrono_literals;

/// Writes down what it hears, the outputs in a row as one.
class Recorder : public TaskController {
public:
    void processStarted() override { events.emplace_back("started"); }
    void processFinished() override { events.emplace_back("finished"); }
    void launcherDidTerminatedWithCode(int status) override { events.push_back("ended " + std::to_string(status)); }
    void appendOutput(const QString &text) override
    {
        output += text;
        if (events.empty() || events.back() != "output") {
            events.emplace_back("output");
        }
        if (onOutput) {
            onOutput();
        }
    }

    std::vector<std::string> events;
    QString output;
    std::function<void()> onOutput;
};

class TaskWrapperTest : public Test {
protected:
    /// Whatever a test did, no process is left, not even a dead one.
    void TearDown() override
    {
        EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
        EXPECT_EQ(errno, ECHILD);
    }
    /// Runs a script to its end.
    bool run(const QByteArray &script, const TaskLimits &limits = {})
    {
        TaskWrapper task(&recorder_, {scriptedTool(folder_, "tool", script)}, limits);
        task.startProcess();
        return task.waitUntilTaskExit(cancelled_);
    }

    ScratchFolder folder_;
    Recorder recorder_;
    CancelFlag cancelled_{false};
};

TEST_F(TaskWrapperTest, TellsOfAToolsLifeInOrder)
{
    const std::tuple<const char *, std::vector<std::string>, const char *> cases[] = {
        {"echo out; echo err >&2; exit 3", {"started", "output", "finished", "ended 3"}, "out\nerr\n"},
        {"kill -9 $$", {"started", "finished", "ended 9"}, ""},
        {"read line && exit 5; exit 6", {"started", "finished", "ended 6"}, ""},
        {"printf '\\303'; sleep 0.05; printf '\\244'", {"started", "output", "finished", "ended 0"}, "\u00e4"},
        {"sleep 1000 & exit 0", {"started", "finished", "ended 0"}, ""},
        // Its output ends first; then it is asked to end.
        {"trap 'exit 7' TERM; exec >&- 2>&-; while :; do :; done", {"started", "finished", "ended 7"}, ""},
    };
    for (const auto &[script, events, output] : cases) {
        recorder_ = {};
        EXPECT_TRUE(run(script)) << script;
        EXPECT_EQ(recorder_.events, events) << script;
        EXPECT_EQ(recorder_.output, QString::fromUtf8(output));
    }
}

TEST_F(TaskWrapperTest, EndsAtOnceWhenTheToolCannotBeRun)
{
    folder_.write("no-program", "text");
    for (const QByteArray name : {"missing", "no-program", ""}) {
        recorder_ = {};
        TaskWrapper task(&recorder_, {folder_.path(name)});
        task.startProcess();
        EXPECT_TRUE(task.waitUntilTaskExit(cancelled_));
        EXPECT_THAT(recorder_.events, ElementsAre("started"));
    }
    TaskWrapper nothing(nullptr, {});
    nothing.startProcess();
    nothing.stopProcess();
    nothing.waitUntilTaskExit();
}

TEST_F(TaskWrapperTest, StopsAToolWhenCancelledOrWhenItWillNeverEnd)
{
    constexpr std::optional<TaskLimits> untilCancelled; // at its first output
    constexpr TaskLimits silence{.silence = 200ms};
    const std::tuple<const char *, std::optional<TaskLimits>, const char *> cases[] = {
        {"echo ready; exec sleep 1000", untilCancelled, "ended 15"},
        {"trap 'exit 4' TERM; echo ready; while :; do :; done", untilCancelled, "ended 4"},
        {"trap '' TERM; while :; do echo ready; done", untilCancelled, "ended 9"},
        {"echo ready; kill -STOP $$; sleep 1000", untilCancelled, "ended 15"},
        {"sleep 1000", silence, "ended 15"},
        {"trap '' TERM; sleep 1000", silence, "ended 9"},
        {"trap '' TERM; exec >&- 2>&-; while :; do :; done", silence, "ended 9"},
        {"while :; do echo busy; done", TaskLimits{.wholeRun = 300ms}, "ended 15"},
        {"exec yes", TaskLimits{.outputBytes = 1 << 20}, "ended 15"},
    };
    for (const auto &[script, limits, end] : cases) {
        recorder_ = {};
        recorder_.onOutput = [this, cancels = !limits] { cancelled_ = cancels; };
        cancelled_ = false;
        EXPECT_EQ(run(script, limits.value_or(TaskLimits{})), limits.has_value()) << script;
        EXPECT_EQ(recorder_.events.back(), end) << script;
        EXPECT_LE(recorder_.output.size(), limits.value_or(TaskLimits{}).outputBytes + (1 << 20));
    }
}

TEST_F(TaskWrapperTest, LeavesABusyToolAlone)
{
    // Both run for longer than the limit of silence: one uses the processor, the other writes output.
    for (const char *script : {"i=0; while [ $i -lt 1000000 ]; do i=$((i+1)); done; echo done",
                               "for i in 1 2 3 4 5; do sleep 0.2; echo $i; done; echo done"}) {
        recorder_ = {};
        EXPECT_TRUE(run(script, {.silence = 700ms}));
        EXPECT_TRUE(recorder_.output.endsWith(u"done\n")) << script;
        EXPECT_EQ(recorder_.events.back(), "ended 0");
    }
}

TEST_F(TaskWrapperTest, NeverLeavesAProcessBehind)
{
    for (const char *script : {"exec sleep 1000", "trap '' TERM; while :; do :; done", "exit 0"}) {
        const QString tool = scriptedTool(folder_, "tool", script);
        for (const bool suspended : {false, true}) {
            TaskWrapper task(nullptr, {tool});
            task.startProcess();
            if (suspended) {
                task.suspend();
            }
        }
    }
}
