#include "ui/desktop/TerminationSignals.h"

#include <QSocketNotifier>

#include <sys/signalfd.h>

#include "platform/Uninterrupted.h"

namespace vellomar {
namespace {

bool isIgnored(int signal) {
    struct sigaction action {};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

sigset_t terminationSignals() {
    sigset_t set;
    ::sigemptyset(&set);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        if (!isIgnored(signal)) ::sigaddset(&set, signal);
    return set;
}

}  // namespace

TerminationSignals::TerminationSignals()
    : held_(terminationSignals()),
      arrivals_(::signalfd(-1, &held_, SFD_CLOEXEC | SFD_NONBLOCK)),
      isHolding_(arrivals_.isOpen() && ::pthread_sigmask(SIG_BLOCK, &held_, nullptr) == 0) {}

TerminationSignals::~TerminationSignals() {
    release();
}

void TerminationSignals::listen() {
    if (!isHolding_) return;
    auto* const notifier = new QSocketNotifier(arrivals_.get(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &TerminationSignals::read);
}

void TerminationSignals::read() {
    signalfd_siginfo arrival{};
    const auto length = uninterrupted([&] { return ::read(arrivals_.get(), &arrival, sizeof arrival); });
    if (length != static_cast<ssize_t>(sizeof arrival)) return;
    release();
    emit asked();
}

void TerminationSignals::release() {
    if (isHolding_) ::pthread_sigmask(SIG_UNBLOCK, &held_, nullptr);
    isHolding_ = false;
}

}  // namespace vellomar
