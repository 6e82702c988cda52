// SHA-256 by the operating system's own library, so that the program for Windows needs no other one.
#include <windows.h>

#include <bcrypt.h>

#include <array>

#include "apps/vestra_resave/file_content.h"

namespace vestra::command {

struct sha256::state {
    state() {
        is_good = BCryptOpenAlgorithmProvider(&provider, BCRYPT_SHA256_ALGORITHM, nullptr, 0) >= 0 &&
                  BCryptCreateHash(provider, &hash, nullptr, 0, nullptr, 0, 0) >= 0;
    }
    ~state() {
        // The hash belongs to the provider and ends first.
        if (hash != nullptr) BCryptDestroyHash(hash);
        if (provider != nullptr) BCryptCloseAlgorithmProvider(provider, 0);
    }
    state(const state&) = delete;
    state& operator=(const state&) = delete;

    BCRYPT_ALG_HANDLE provider = nullptr;
    BCRYPT_HASH_HANDLE hash = nullptr;
    bool is_good = false;
};

sha256::sha256() : state_(std::make_unique<state>()) {}
sha256::~sha256() = default;

void sha256::add(const void* bytes, size_t length) {
    auto* const first = static_cast<unsigned char*>(const_cast<void*>(bytes)); // only read
    state_->is_good =
        state_->is_good && BCryptHashData(state_->hash, first, static_cast<ULONG>(length), 0) >= 0;
}

std::string sha256::text() {
    std::array<unsigned char, 32> digest{};
    const auto length = static_cast<ULONG>(digest.size());
    if (!state_->is_good || BCryptFinishHash(state_->hash, digest.data(), length, 0) < 0) return {};
    return hexadecimal(digest.data(), digest.size());
}

} // namespace vestra::command
