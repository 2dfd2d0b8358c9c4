#pragma once

namespace vellomar::bench {

// From here on Ctrl-C and SIGTERM no longer end the program on the spot, which would leave gigabytes of test files
// behind: the next call of stopIfInterrupted() throws instead. Programs started meanwhile end as usual.
void catchInterruptions();

// Throws std::runtime_error once the user wants to stop.
void stopIfInterrupted();

}  // namespace vellomar::bench
