#include "app/AboutText.h"

#include <string_view>

#include "places/CompiledPlaces.h"

namespace vellomar {
namespace {

std::string versionText() {
    return "Vellomar " VELLOMAR_VERSION "\n";
}

std::string aboutText() {
    return versionText() +
           "Sorts a photographer's files into a dated folder tree.\n"
           "Free software under the GNU General Public License, version 3 or any later one.\n" +
           std::string(placesAttribution()) + "\n";
}

std::string helpText() {
    return "Usage: vellomar [--version | --about | --help]\n"
           "Without an option the window opens, or comes to the front where it is open already.\n";
}

}  // namespace

std::optional<std::string> answerTo(std::span<const char* const> arguments) {
    for (const std::string_view argument : arguments) {
        if (argument == "--version") return versionText();
        if (argument == "--about") return aboutText();
        if (argument == "--help") return helpText();
    }
    return std::nullopt;
}

}  // namespace vellomar
