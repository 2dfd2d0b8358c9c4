#include <QSignalSpy>
#include <csignal>

#include <gtest/gtest.h>

#include "ui/desktop/SpinUntil.h"
#include "ui/desktop/TerminationSignals.h"

namespace vellomar {
namespace {

using testing::spinUntil;

// To this thread, since the test program's other threads hold nothing back.
void send(int signal) {
    ASSERT_EQ(::pthread_kill(::pthread_self(), signal), 0);
}

bool isHeldBack(int signal) {
    sigset_t mask;
    ::pthread_sigmask(SIG_BLOCK, nullptr, &mask);
    return ::sigismember(&mask, signal) == 1;
}

class ScopedIgnoredSignal {
public:
    explicit ScopedIgnoredSignal(int signal) : signal_(signal), before_(std::signal(signal, SIG_IGN)) {}
    ~ScopedIgnoredSignal() { std::signal(signal_, before_); }
    ScopedIgnoredSignal(const ScopedIgnoredSignal&) = delete;
    ScopedIgnoredSignal& operator=(const ScopedIgnoredSignal&) = delete;

private:
    int signal_;
    void (*before_)(int);
};

TEST(TerminationSignals, EachIsToldInTheEventLoop) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        SCOPED_TRACE(signal);
        TerminationSignals termination;
        termination.listen();
        const QSignalSpy asked(&termination, &TerminationSignals::asked);
        send(signal);
        EXPECT_EQ(asked.count(), 0);
        EXPECT_TRUE(spinUntil([&] { return asked.count() == 1; }));
    }
}

TEST(TerminationSignals, OneThatCameBeforeTheEventLoopIsTold) {
    TerminationSignals termination;
    const QSignalSpy asked(&termination, &TerminationSignals::asked);
    send(SIGTERM);
    termination.listen();
    EXPECT_TRUE(spinUntil([&] { return asked.count() == 1; }));
}

TEST(TerminationSignals, TheSecondEndsTheProgramAtOnce) {
    TerminationSignals termination;
    termination.listen();
    const QSignalSpy asked(&termination, &TerminationSignals::asked);
    EXPECT_TRUE(isHeldBack(SIGTERM));
    send(SIGINT);
    ASSERT_TRUE(spinUntil([&] { return asked.count() == 1; }));
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        EXPECT_FALSE(isHeldBack(signal)) << signal;
}

TEST(TerminationSignals, WhatTheParentIgnoredStaysIgnored) {
    const ScopedIgnoredSignal ignored(SIGHUP);
    const TerminationSignals termination;
    EXPECT_TRUE(isHeldBack(SIGTERM));
    EXPECT_FALSE(isHeldBack(SIGHUP));
}

TEST(TerminationSignals, NothingIsHeldBackBehindIt) {
    { const TerminationSignals termination; }
    EXPECT_FALSE(isHeldBack(SIGTERM));
}

}  // namespace
}  // namespace vellomar
