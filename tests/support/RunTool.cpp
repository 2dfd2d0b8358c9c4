#include "support/RunTool.h"

#include <gtest/gtest.h>

#include "platform/ChildProcess.h"

namespace vellomar::testing {

void runTool(const std::vector<std::string>& nameAndArguments) {
    ProgramStart program{.executable = "/bin/sh", .arguments = {"-c", "exec \"$@\"", "sh"}, .descriptors = {}};
    program.arguments.insert(program.arguments.end(), nameAndArguments.begin(), nameAndArguments.end());
    auto process = ChildProcess::start(program);
    ASSERT_TRUE(process.has_value());
    EXPECT_EQ(process->waitForEnd(), 0) << nameAndArguments.front();
}

}  // namespace vellomar::testing
