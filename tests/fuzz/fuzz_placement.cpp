// Placement compared with a plain scan. The input is two bytes for options, then one source on each line,
// which is placed, copied and looked up again.
#include <deque>
#include <set>

#include "framework/resources/strings.h"
#include "host/vsk_basic.h"
#include "logs/log_file.h"
#include "operations/run/path_files.h"
#include "operations/run/path_placement.h"
#include "operations/run/resave_options.h"
#include "operations/run/run_report.h"
#include "platform/forwarding_system.h"
#include "platform/path_text.h"
#include "tests/fuzz/fuzz_input.h"

// Stubs of what a placement calls besides the disk; there is no one to ask.
namespace vs::project_resave {
wide_string load_string(int32_t) { return u"_log.txt"; }
} // namespace vs::project_resave
uint32_t vs_wstrings_get_size(const vs_wstrings*) { return 0; }
const char16_t* vs_wstrings_get_str(const vs_wstrings*, uint32_t) { return u""; }

using namespace vs::project_resave;

namespace {

// Drives that only contain what a run makes.
class empty_disk final : public forwarding_system {
public:
    platform::entry_status status_of(const wide_string& path) override {
        const wide_string key = key_of(path);
        const bool is_drive = !path_root(path).empty() && path.size() == path_fixed_length(path);
        if (is_drive || folders_.contains(key)) return {platform::entry_kind::folder};
        if (files_.contains(key)) return {platform::entry_kind::file};
        return {platform::entry_kind::none, 0, platform::failure::missing};
    }
    platform::outcome create_folder(const wide_string& path) override {
        const bool is_free = kind_of(path) == platform::entry_kind::none;
        return is_free && folders_.insert(key_of(path)).second ? platform::outcome()
                                                               : platform::failure::taken;
    }
    platform::outcome copy_file(const wide_string&, const wide_string& target, bool) override {
        if (!path_exists(path_head(target))) return platform::failure::missing;
        const bool is_free = !path_exists(target);
        return is_free && files_.insert(key_of(target)).second ? platform::outcome()
                                                               : platform::failure::taken;
    }

    bool same_file(const wide_string& a, const wide_string& b) override { return path_same(a, b); }

private:
    // "C:name", which has no normal form of its own, is in the root of the drive.
    static wide_string key_of(const wide_string& path) {
        const wide_string drive = path_root(path);
        return path_key(drive.empty() ? path : drive + u'\\' + path.substr(2));
    }

    std::set<wide_string> files_, folders_;
};

// True if a disk finds it without a current folder. Names with a colon do not exist on it.
bool is_written_out(const wide_string& path) {
    if (path_root(path).empty() || path.size() < 4 || path_normalise(path) != path) return false;
    return path.find(u"..") == wide_string::npos && path.find(u':', 2) == wide_string::npos;
}

struct run {
    run(unsigned char structure, unsigned char choices) {
        options.structure_variant = static_cast<project_resave::structure>(structure % 5);
        options.lower_case = (choices & 1) != 0;
        options.rename_on_conflict = true; // there is no one to ask
        placement.set_source(u"C:\\prj\\area._vp");
        placement.set_output(u"N:\\out\\new._vp");
        if ((choices & 4) != 0) placement.common.add_path(placement.source_project_path);
        if ((choices & 8) != 0) placement.type_folder = u"shp";
    }
    bool is_below(const wide_string& path) const {
        return (path_key(path) + u'\\').starts_with(path_key(placement.new_folder) + u'\\');
    }
    void place(const wide_string& source) {
        const placed_file* scanned = nullptr;
        for (const placed_file& entry : scan)
            if (!scanned && path_same(entry.old_path, source)) scanned = &entry;
        hold(placement.lookup_placed(source) == (scanned ? scanned->new_path : wide_string()), "as a scan");
        if (scanned) return;
        const wide_string target = placement.new_path(source);
        const bool is_copied{platform::current_system().copy_file(source, target, false)};
        wide_string lower = target;
        platform::lower_in_place(lower);
        hold(!options.lower_case || lower == target, "lower case is lower");
        hold(!is_written_out(source) || is_copied, "a free name in a folder that is there");
        hold(!is_written_out(source) || is_below(target), "below the new folder");
        if (!is_copied) return;
        hold(!is_written_out(target) || targets.insert(path_key(target)).second, "two files in one place");
        placement.register_placed(source, target);
        scan.push_back({source, target});
    }

    resave_options options{nullptr};
    log_file log{nullptr};
    run_report report;
    path_placement placement{nullptr, &log, &report, &options};
    std::deque<placed_file> scan;
    std::set<wide_string> targets;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size < 2) return 0;
    empty_disk disk;
    const platform::system_override in_force(disk);
    run fuzzed(bytes[0], bytes[1]);
    auto sources = path_split(wide_of(bytes_of(bytes + 2, size - 2)), u"\n", true);
    if (sources.size() > 100) sources.resize(100);
    path_placement& placement = fuzzed.placement;
    if (!sources.empty()) placement.set_scene(nullptr, sources.front());
    hold(sources.empty() || fuzzed.is_below(path_join(placement.new_folder, placement.scene_folder)),
         "a scene below");
    for (const wide_string& source : sources) placement.common.add_path(source);
    for (const wide_string& source : sources) fuzzed.place(source);
    return 0;
}
