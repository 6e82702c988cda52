// The register of placed files against a plain scan: a line each, asked and then entered.
#include "core/paths.h"
#include "core/placed_files.h"
#include "tests/fuzz/fuzz_input.h"

using namespace vs::project_resave;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    placed_files placed;
    for (const wide_string& path : path_split(wide_of(bytes_of(bytes, size)), u"\n", false)) {
        const placed_file* scanned = nullptr;
        for (const placed_file& entry : placed)
            if (!scanned && path_same(entry.old_path, path)) scanned = &entry;
        hold(placed.find(path) == scanned, "found as a scan finds it");
        placed.add(path, u"new");
        if (placed.size() > 200) break;
    }
    return 0;
}
