// How much of the long tests is run, and their counts.
//
//     TORTURE_FAULTS=N   number of faults of each kind and case, spread over the run; "all" for every one
//     TORTURE_KILLS=N    number of kills
//     TORTURE_SEED=N     seed of the random numbers, which is printed
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

// Returns the step from one number of `all` to the next, so that about the requested number is used.
inline size_t stride(size_t all) {
    const size_t wanted = number_of("TORTURE_FAULTS", 2);
    return wanted >= all ? 1 : (all + wanted - 1) / wanted;
}

inline std::mt19937_64 seeded(const char* what) {
    const size_t seed = number_of("TORTURE_SEED", std::random_device()());
    std::printf("%s: TORTURE_SEED=%zu\n", what, seed);
    return std::mt19937_64(seed);
}

// Open files of this process, if the operating system lists them, and folders that are only held open, of
// which a disk holds at most four to look up their names.
struct open_descriptors {
    size_t files = 0, folders = 0;
};
open_descriptors descriptors();

// Prints a line that tools/torture adds up.
inline void count(const char* what, size_t number) { std::printf("torture: %s %zu\n", what, number); }

} // namespace vs::project_resave::torture
