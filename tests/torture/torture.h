// How much of the long tests is run, and what they counted.
//
//     TORTURE_FAULTS=N   so many faults of each kind and case, spread over the run; "all": each of them
//     TORTURE_KILLS=N    so many kills
//     TORTURE_SEED=N     of what is random; it is printed
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

namespace vs::project_resave::torture {

inline size_t number_of(const char* variable, size_t otherwise) {
    const char* const value = std::getenv(variable);
    if (value == nullptr || *value == 0) return otherwise;
    return std::string_view(value) == "all" ? SIZE_MAX : std::strtoull(value, nullptr, 10);
}

// From one number of `all` to the next, so that about as many are met as are wanted.
inline size_t stride(size_t all) {
    const size_t wanted = number_of("TORTURE_FAULTS", 2);
    return wanted >= all ? 1 : (all + wanted - 1) / wanted;
}

inline std::mt19937_64 seeded(const char* what) {
    const size_t seed = number_of("TORTURE_SEED", std::random_device()());
    std::printf("%s: TORTURE_SEED=%zu\n", what, seed);
    return std::mt19937_64(seed);
}

// Of this process, where the system shows them: files that are open, and folders that are only held, of which
// a disk holds four at most, so that their names can be looked up.
struct open_descriptors {
    size_t files = 0, folders = 0;
};
open_descriptors descriptors();

// A line that tools/torture adds up.
inline void count(const char* what, size_t number) { std::printf("torture: %s %zu\n", what, number); }

} // namespace vs::project_resave::torture
