#include "sys/background.h"
#include "sys/queued_notify.h"
#include "sys/thread.h"
#include "sys/thread_check.h"

#include "support/owner.h"
#include "support/temp_dir.h"
#include "sys/desktop/crash_report.h"

#include <gtest/gtest.h>

#include <memory>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

bool IsSet(const LSignalObject& object) {
    return LSignalObjectRef(object).WaitSignalDual(object, 0);
}

TEST(Signal, StaysSetUntilItIsReset) {
    LSignalObject one, other;
    EXPECT_FALSE(IsSet(one));
    one.Signal();
    one.Signal();
    EXPECT_TRUE(IsSet(one));
    EXPECT_TRUE(IsSet(one)) << "a wait takes nothing";
    EXPECT_TRUE(LSignalObjectRef(other).WaitSignalDual(one, 10000));
    one.Reset();
    EXPECT_FALSE(IsSet(one));
    for (int i = 0; i < 100'000; ++i)
        one.Signal(); // more than a pipe holds
    one.Reset();
    EXPECT_FALSE(IsSet(one));
}

class Worker : public LThread {
public:
    ~Worker() override { StopThreadNow(); }
    LSignalObject go;
    std::atomic<int> runs = 0;
    bool endAtOnce = false;

private:
    void ThreadFunction() override {
        ++runs;
        while (!endAtOnce && !IsStopRequested())
            WaitSignal(go, 10000);
    }
};

TEST(Thread, RunsAgainAfterItHasEnded) {
    Worker worker;
    worker.StopThreadNow();
    worker.Start(2);
    worker.Start(2); // it runs already
    worker.StopThreadNow();
    EXPECT_EQ(worker.runs, 1);
    worker.endAtOnce = true;
    for (int i = 0; i < 3; ++i) {
        worker.Start(LThread::PriorityRealTime);
        while (worker.IsRunning())
            std::this_thread::yield();
    }
    worker.StopThreadNow();
    worker.StopThreadNow();
    EXPECT_EQ(worker.runs, 4);
    worker.endAtOnce = false;
    worker.Start(LThread::PriorityNormal);
    worker.StopThreadSoon();
    while (worker.IsRunning()) // a stop wakes it
        std::this_thread::yield();
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // which handle a crash themselves
class Endless : public LThread {
public:
    ~Endless() override { StopThreadNow(); }

private:
    void ThreadFunction() override { Recurse(0); }
    int Recurse(int depth) { return depth < 0 ? 0 : Recurse(depth + 1) + depth; } // NOLINT(misc-no-recursion)
};

TEST(Thread, AFullStackIsReported) {
    const TempDir dir;
    const pid_t child = fork();
    if (child == 0) {
        LInstallCrashReport(dir / "report", "head");
        Endless().Start(LThread::PriorityNormal);
        _exit(0);
    }
    int state = 0;
    waitpid(child, &state, 0);
    EXPECT_TRUE(WIFSIGNALED(state));
    EXPECT_NE(ReadBytes(dir / "report").find("Signal: SIGSEGV"), std::string::npos);
}
#endif

class Receiver : public LThreadQueuedNotify {
public:
    explicit Receiver(std::vector<const Receiver*>& orderOfCalls) : order(orderOfCalls) {}
    std::thread::id thread;

private:
    void EvNotify() override {
        order.push_back(this);
        thread = std::this_thread::get_id();
    }
    std::vector<const Receiver*>& order;
};

TEST(QueuedNotify, EachPostIsOneCallOnTheMainThreadInOrder) {
    LEventLoop loop;
    std::vector<const Receiver*> order;
    Receiver one(order), two(order);
    auto gone = std::make_unique<Receiver>(order);
    std::thread([&] {
        one.PostQueueNotify();
        gone->PostQueueNotify();
        two.PostQueueNotify();
        one.PostQueueNotify();
    }).join();
    EXPECT_TRUE(order.empty());
    gone.reset();
    EXPECT_TRUE(WaitUntil(loop, [&] { return order.size() >= 3; }));
    EXPECT_EQ(order, (std::vector<const Receiver*>{&one, &two, &one})) << "and none for what is destroyed";
    EXPECT_EQ(one.thread, std::this_thread::get_id());
}

#ifndef NDEBUG
TEST(ThreadCheckDeathTest, OneThreadAtATimeUsesWhatIsChecked) {
    LThreadCheck check;
    const auto useElsewhere = [&check] { std::thread([&check] { check.Check(); }).join(); };
    useElsewhere();
    EXPECT_DEATH(check.Check(), "another thread");
    check.Rebind();
    check.Check();
    check.Check();
    EXPECT_DEATH(useElsewhere(), "another thread");
}
#endif

TEST(Background, WorkIsWaitedForOnlySoLong) {
    LSignalObject finish;
    ASSERT_TRUE(RunInBackground([&finish] { LSignalObjectRef(finish).WaitSignalDual(finish, 10000); }));
    EXPECT_FALSE(WaitForBackground(1));
    finish.Signal();
    EXPECT_TRUE(WaitForBackground(10000));
}

} // namespace
