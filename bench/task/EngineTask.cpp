// Does one job of the engine and prints what it took as one line of JSON.
//
//   engine_task JOB SOURCE [DEST]     the jobs are told in Jobs.h
#include <cstdio>
#include <exception>
#include <string>

#include "task/Jobs.h"

int main(int argc, char** argv) {
    using namespace vellomar::bench;
    const auto job = argc >= 3 ? jobs().find(argv[1]) : jobs().end();
    if (job == jobs().end()) {
        std::fputs("Usage: engine_task JOB SOURCE [DEST]\n", stderr);
        return 2;
    }
    try {
        job->second(argv[2], argc > 3 ? argv[3] : "");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "engine_task %s: %s\n", argv[1], error.what());
        return 1;
    }
}
