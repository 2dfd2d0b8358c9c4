#pragma once

#include <QObject>
#include <csignal>
#include <optional>

#include "platform/FileDescriptor.h"

class QSocketNotifier;

namespace vellomar {

// The end that comes from outside: a desktop that logs out, a terminal that closes, Ctrl+C. It arrives in the event
// loop, where the program can finish what it is at. Interface thread only.
//
// The first such signal is told; from then on they end the program at once, as they do without this. A signal that the
// program's parent had ignored (nohup) stays ignored.
class TerminationSignals final : public QObject {
    Q_OBJECT

public:
    // Before any other thread starts, since each must leave the signals to this one; so before the application is made.
    // Nothing is lost if the kernel lacks the means: the signals then end the program.
    TerminationSignals();

    // What was held back and not asked for takes effect.
    ~TerminationSignals() override;
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

    // From now on asked() comes, also for a signal that arrived before. Needs the application's event loop.
    void listen();

signals:
    void asked();

private:
    void read();
    void release();

    sigset_t held_{};
    FileDescriptor arrivals_;
    bool isHolding_ = false;
};

}  // namespace vellomar
