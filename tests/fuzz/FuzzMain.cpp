// Where the fuzzing engine comes in. The build says for which target: FUZZ_TARGET is the name of its constant.
#include "fuzz/Targets.h"

extern "C" {
int LLVMFuzzerInitialize(int* argumentCount, char*** arguments);
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
}

int LLVMFuzzerInitialize(int* /*argumentCount*/, char*** /*arguments*/) {
    if (vellomar::fuzz::FUZZ_TARGET.prepare != nullptr) vellomar::fuzz::FUZZ_TARGET.prepare();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vellomar::fuzz::FUZZ_TARGET.run({data, size});
    return 0;
}
