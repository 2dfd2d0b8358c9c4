#include <string>
#include <string_view>

#include <benchmark/benchmark.h>

#include "platform/BytesJson.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

void lowerCase(benchmark::State& state, std::string_view text) {
    for (auto _ : state)
        benchmark::DoNotOptimize(lowercased(text));
}
BENCHMARK_CAPTURE(lowerCase, ascii, "IMG_20230814_143021.JPG");
BENCHMARK_CAPTURE(lowerCase, accented, "Fotos de Ávila_143021.JPG");
BENCHMARK_CAPTURE(lowerCase, latin1, "Fotos de \xC1vila_143021.JPG");

void writePath(benchmark::State& state, std::string_view path) {
    const Json value = std::string(path);
    for (auto _ : state)
        benchmark::DoNotOptimize(jsonText(value));
}
BENCHMARK_CAPTURE(writePath, ascii, "/home/user/Photos/2023/08 - August/Rome/2023-08-14_143021_IMG_4821.jpg");
BENCHMARK_CAPTURE(writePath, accented, "/home/user/Fotos/2023/08 - August/Ávila/2023-08-14_143021_IMG_4821.jpg");
BENCHMARK_CAPTURE(writePath, latin1, "/home/user/Fotos/2023/08 - August/\xC1vila/2023-08-14_143021_IMG_4821.jpg");

}  // namespace
}  // namespace vellomar
