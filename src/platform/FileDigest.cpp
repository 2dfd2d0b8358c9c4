#include "platform/FileDigest.h"

#include <array>
#include <vector>

#include <openssl/evp.h>

namespace vellomar {
namespace {

constexpr std::size_t kReadSize = 256 * 1024;
constexpr std::size_t kDigestSize = 32;

using DigestContext = std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)>;

// One thread hashes one file after the other, so the buffer and the state serve them all.
struct Workspace {
    std::vector<std::byte> buffer = std::vector<std::byte>(kReadSize);
    DigestContext context{EVP_MD_CTX_new(), &EVP_MD_CTX_free};
};

std::string hexadecimal(std::span<const unsigned char> bytes) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const auto byte : bytes) {
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 0x0FU];
    }
    return text;
}

// False if the file cannot be read to its end.
bool digestContent(InputFile& file, Workspace& workspace) {
    while (true) {
        const auto count = file.read(workspace.buffer);
        if (!count) return false;
        if (*count == 0) return true;
        EVP_DigestUpdate(workspace.context.get(), workspace.buffer.data(), *count);
    }
}

}  // namespace

tl::expected<std::string, DigestFailure> digestOfFile(FileSystem& fileSystem, const std::string& path) {
    thread_local Workspace workspace;
    const auto file = fileSystem.openForReading(path, true);
    if (!file) return tl::unexpected(DigestFailure::cannotOpen);
    EVP_DigestInit_ex(workspace.context.get(), EVP_sha256(), nullptr);
    if (!digestContent(**file, workspace)) return tl::unexpected(DigestFailure::cannotRead);
    std::array<unsigned char, kDigestSize> digest{};
    EVP_DigestFinal_ex(workspace.context.get(), digest.data(), nullptr);
    return hexadecimal(digest);
}

std::optional<std::string> sha256OfFile(FileSystem& fileSystem, const std::string& path) {
    auto digest = digestOfFile(fileSystem, path);
    if (!digest) return std::nullopt;
    return std::move(*digest);
}

}  // namespace vellomar
