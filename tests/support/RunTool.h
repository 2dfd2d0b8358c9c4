#pragma once

#include <string>
#include <vector>

namespace vellomar::testing {

// Runs an outside program that makes what a test needs: its name, which is looked up as a shell does, and its
// arguments. Fails the test when it is missing or fails.
void runTool(const std::vector<std::string>& nameAndArguments);

}  // namespace vellomar::testing
