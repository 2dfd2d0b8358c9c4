// Drives the core from a script: one JSON request a line on standard input, one JSON answer a line on standard output.
#include <exception>
#include <iostream>
#include <string>
#include <string_view>

#include "driver/Ops.h"
#include "platform/BytesJson.h"

namespace vellomar::driver {
namespace {

Json failure(const std::string& text) {
    return {{"ok", false}, {"error", text}};
}

Json answer(const Ops& ops, std::string_view line) {
    const auto request = parseJson(line);
    if (!request || !request->is_object()) return failure("not a JSON object");
    const auto name = request->find("op");
    if (name == request->end() || !name->is_string()) return failure("no op");
    const auto op = ops.find(name->get<std::string>());
    if (op == ops.end()) return failure("unknown op: " + name->get<std::string>());
    try {
        return {{"ok", true}, {"result", op->second(*request)}};
    } catch (const std::exception& error) {
        return failure(error.what());
    }
}

void answerAll(std::istream& requests, std::ostream& answers) {
    Surroundings surroundings;
    Ops ops;
    addFileOps(ops);
    addNamingOps(ops);
    addLookOps(ops);
    addShiftOps(ops);
    addMetadataOps(ops, surroundings);
    addEngineOps(ops, surroundings);
    addWatchOps(ops, surroundings);
    for (std::string line; std::getline(requests, line);)
        if (!line.empty()) answers << jsonText(answer(ops, line)) << std::endl;
}

}  // namespace
}  // namespace vellomar::driver

int main() {
    vellomar::driver::answerAll(std::cin, std::cout);
}
