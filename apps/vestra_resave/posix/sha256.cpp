// SHA-256 by OpenSSL, which uses the instructions of the processor where there are any.
#include <openssl/evp.h>

#include <array>

#include "apps/vestra_resave/file_content.h"

namespace vestra::command {

struct sha256::state {
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context{EVP_MD_CTX_new(), &EVP_MD_CTX_free};
    bool is_good = EVP_DigestInit_ex(context.get(), EVP_sha256(), nullptr) == 1;
};

sha256::sha256() : state_(std::make_unique<state>()) {}
sha256::~sha256() = default;

void sha256::add(const void* bytes, size_t length) {
    state_->is_good = state_->is_good && EVP_DigestUpdate(state_->context.get(), bytes, length) == 1;
}

std::string sha256::text() {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned length = 0;
    if (!state_->is_good || EVP_DigestFinal_ex(state_->context.get(), digest.data(), &length) != 1) return {};
    return hexadecimal(digest.data(), length);
}

} // namespace vestra::command
