#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <fcntl.h>
#include <openssl/evp.h>
#include <unistd.h>

#include "floors/KernelCall.h"

namespace vellomar::bench {

// SHA-256 of one file after the other, through a buffer of 256 KiB.
class BareDigest {
public:
    BareDigest() = default;
    ~BareDigest() { EVP_MD_CTX_free(context_); }
    BareDigest(const BareDigest&) = delete;
    BareDigest& operator=(const BareDigest&) = delete;

    // How many bytes the file has.
    std::uint64_t digest(const char* path) {
        const int file = orGiveUp(::open(path, O_RDONLY | O_CLOEXEC), path);
        EVP_DigestInit_ex(context_, EVP_sha256(), nullptr);
        std::uint64_t bytes = 0;
        while (const auto count = orGiveUp(::read(file, buffer_.data(), buffer_.size()), path)) {
            EVP_DigestUpdate(context_, buffer_.data(), static_cast<std::size_t>(count));
            bytes += static_cast<std::uint64_t>(count);
        }
        EVP_DigestFinal_ex(context_, result_.data(), nullptr);
        ::close(file);
        return bytes;
    }

private:
    static constexpr std::size_t kBufferSize = 256 * 1024;

    EVP_MD_CTX* context_ = EVP_MD_CTX_new();
    std::vector<std::byte> buffer_ = std::vector<std::byte>(kBufferSize);
    std::vector<unsigned char> result_ = std::vector<unsigned char>(EVP_MAX_MD_SIZE);
};

}  // namespace vellomar::bench
