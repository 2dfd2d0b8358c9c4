// The engine driver as a script sees it: a child with two pipes.
#pragma once

#include <array>
#include <cstdio>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/BytesJson.h"
#include "platform/ChildProcess.h"
#include "support/TemporaryFolder.h"

namespace vellomar::testing {

class Driver {
public:
    Driver() {
        auto [requestsOut, requestsIn] = newPipe();
        auto [answersOut, answersIn] = newPipe();
        auto started = ChildProcess::start(
            {ENGINE_DRIVER, {}, {{requestsOut.get(), STDIN_FILENO}, {answersIn.get(), STDOUT_FILENO}}});
        if (!started) throw std::runtime_error(started.error().description);
        child_.emplace(*std::move(started));
        requests_.emplace(std::move(requestsIn));
        answers_ = ::fdopen(::dup(answersOut.get()), "r");
    }
    ~Driver() {
        if (requests_) finish();
        std::fclose(answers_);
    }
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    void send(std::string_view text) {
        while (!text.empty()) {
            const auto count = ::write(requests_->get(), text.data(), text.size());
            ASSERT_GT(count, 0);
            text.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    // The next line of the answers without its end; empty at their end.
    std::string line() {
        std::string text;
        for (int c = std::fgetc(answers_); c != EOF && c != '\n'; c = std::fgetc(answers_))
            text += static_cast<char>(c);
        return text;
    }

    Json answerTo(const std::string& request) {
        send(request + "\n");
        const auto answer = line();
        const auto value = parseJson(answer);
        EXPECT_TRUE(value.has_value()) << request << "\n" << answer;
        return value ? *value : Json();
    }

    // The result of a request that must succeed.
    Json result(const Json& request) {
        const auto answer = answerTo(jsonText(request));
        EXPECT_EQ(answer.value("ok", false), true) << jsonText(request) << "\n" << jsonText(answer);
        return answer.contains("result") ? answer.at("result") : Json();
    }

    // Ends the input, and returns the exit status; -1 for a driver that did not exit by itself.
    int finish() {
        requests_.reset();
        return child_->waitForEnd().value_or(-1);
    }

private:
    static std::pair<FileDescriptor, FileDescriptor> newPipe() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
        return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
    }

    std::optional<ChildProcess> child_;
    std::optional<FileDescriptor> requests_;
    std::FILE* answers_ = nullptr;
};

class EngineDriver : public ::testing::Test {
protected:
    // Seconds since 1970 of a local reading, as the driver under test understands a name.
    Json epochOf(const std::string& stem) {
        return driver.result({{"op", "filenameCandidate"}, {"stem", stem}}).at("epoch");
    }

    Json errorTo(const std::string& request) {
        const auto answer = driver.answerTo(request);
        EXPECT_EQ(answer.value("ok", true), false) << request;
        EXPECT_FALSE(answer.contains("result"));
        return answer.value("error", Json());
    }

    Driver driver;
    TemporaryFolder folder;
};

}  // namespace vellomar::testing
