// Measures the bundle in the reference host, one thing in each process, so that the peak memory is known for
// each.
//
//     resave-bench generate FOLDER KIND COUNT BYTES    FOLDER/prj/area._vp with COUNT elements of two files
//                                                   each: "shape" or "raster" layers, or "table"; "away" are
//                                                   shape layers on a drive that does not exist
//     resave-bench copy FOLDER NEW_FOLDER              copies the files in a plain loop, for comparison
//     resave-bench load PROJECT TIMES               loads it TIMES times
//     resave-bench xml PROJECT                      only reads it, as the host does
//     resave-bench resave PROJECT NEW_PROJECT
//     resave-bench structure PROJECT TEXT_FILE      with all options
//     resave-bench check-case PROJECT REPORT
//
// All except the first two print one line of figures: name=value, in seconds and KiB. The figures of the last
// two do not include the load.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>

#include "operations/project_context.h"
#include "operations/run_settings.h"
#include "platform/forwarding_system.h"
#include "platform/volumes.h"
#include "reference_host/files/files.h"
#include "reference_host/shell/front_end.h"
#include "ui/host_questions.h"

namespace {

using namespace vs::project_resave;
using clock_type = std::chrono::steady_clock;

double seconds_since(clock_type::time_point start) {
    return std::chrono::duration<double>(clock_type::now() - start).count();
}

long peak_kib() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// Current resident memory, not the peak.
long resident_kib() {
    std::ifstream status("/proc/self/statm");
    long total = 0, resident = 0;
    status >> total >> resident;
    return resident * 4;
}

wide_string number(size_t value) {
    const std::string digits = std::to_string(value);
    return {digits.begin(), digits.end()};
}

// Writes one grey pixel, the smallest file that a raster library accepts.
std::string smallest_raster() {
    std::string bytes("II*\0\x08\0\0\0", 8);
    const auto number = [&](unsigned value, int length) {
        for (int byte = 0; byte < length; ++byte) bytes += static_cast<char>(value >> (8 * byte));
    };
    constexpr unsigned entries[][3] = {{256, 3, 1}, {257, 3, 1}, {258, 3, 8}, {259, 3, 1}, {262, 3, 1},
                                       {273, 4, 8}, {277, 3, 1}, {278, 3, 1}, {279, 4, 1}};
    number(std::size(entries), 2);
    for (const auto& [tag, type, value] : entries) {
        number(tag, 2);
        number(type, 2);
        number(1, 4);
        number(value, 4);
    }
    number(0, 4);
    return bytes;
}

// Writes a table of one column without records.
std::string smallest_table() {
    std::string bytes("\x03\x7a\x01\x01\0\0\0\0\x41\0\x02\0", 12);
    bytes.resize(32);
    bytes.append("A").resize(43);
    bytes.append("C").resize(48);
    bytes += '\1';
    bytes.resize(64);
    return bytes + "\r\x1a";
}

struct family {
    const char* layer_type; // null for a table
    std::string main_extension, main_content, companion;
    size_t folder_size; // elements per folder, as in real projects
};

family family_of(const std::string& kind) {
    if (kind == "table") return {nullptr, ".dbf", smallest_table(), ".cpg", 1000};
    if (kind == "raster") return {"rtr_lr2d", ".tif", smallest_raster(), ".tfw", 100};
    return {"shp_pnt_lr2d", ".shp", std::string("\x00\x00\x27\x0a", 4), ".shx", 1000};
}

auto& identify(auto& element, const wide_string& kind, size_t index) {
    element.id = vestra::uuid::random();
    element.caption = kind + number(index);
    return element;
}

// A hundred layers per scene.
int generate(const std::filesystem::path& folder, const std::string& kind, size_t count, size_t bytes) {
    const family files = family_of(kind);
    const bool is_away = kind == "away";
    std::string content = files.main_content;
    content.resize(std::max(bytes, content.size()), 'x');
    vestra::project project;
    vestra::scene* scene = nullptr;
    const wide_string root = platform::drive_path(folder.string());
    for (size_t index = 0; index < count; ++index) {
        if (files.layer_type != nullptr && index % 100 == 0)
            scene = &identify(project.scenes_2d.make_scene(), u"Scene ", index / 100);
        const auto place = folder / "data" / std::to_string(index / files.folder_size);
        const std::string name = "file" + std::to_string(index);
        wide_string path = platform::drive_path((place / (name + files.main_extension)).string());
        if (is_away) {
            path.front() = u'Q';
        } else {
            std::filesystem::create_directories(place);
            std::ofstream(place / (name + files.main_extension), std::ios::binary) << content;
            std::ofstream(place / (name + files.companion), std::ios::binary)
                << std::string(content.size(), '1');
        }
        if (files.layer_type != nullptr)
            identify(scene->make_layer(files.layer_type), u"Layer ", index).file = path;
        else
            identify(project.tables.make(), u"Table ", index).file = path;
    }
    std::filesystem::create_directories(folder / "prj");
    if (const auto error = vestra::files::write_project(root + u"\\prj\\area._vp", project)) return 1;
    return 0;
}

int copy_in_a_loop(const std::filesystem::path& folder, const std::filesystem::path& target) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const auto place = target / entry.path().lexically_relative(folder);
        if (entry.is_directory()) {
            std::filesystem::create_directories(place);
            continue;
        }
        const int in = ::open(entry.path().c_str(), O_RDONLY | O_CLOEXEC);
        std::filesystem::create_directories(place.parent_path());
        const int out = ::open(place.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        struct stat status {};
        if (in < 0 || out < 0 || ::fstat(in, &status) != 0) return 1;
        for (off_t left = status.st_size; left > 0;) {
            const ssize_t count = ::copy_file_range(in, nullptr, out, nullptr, static_cast<size_t>(left), 0);
            if (count <= 0) return 1;
            left -= count;
        }
        ::close(in);
        ::close(out);
    }
    return 0;
}

// Records when the first file is copied and when writing the project begins.
class phase_clock : public forwarding_system {
public:
    platform::outcome copy_file(const wide_string& source, const wide_string& target, bool replace) override {
        if (!copying) copying = clock_type::now();
        return forwarding_system::copy_file(source, target, replace);
    }
    platform::outcome open(const wide_string& path, platform::access wanted, platform::disposition how,
                           std::unique_ptr<platform::file>& result) override {
        if (how != platform::disposition::open_existing) writing = clock_type::now();
        return forwarding_system::open(path, wanted, how, result);
    }
    std::optional<clock_type::time_point> copying, writing;
};

int load(const wide_string& path, int times) {
    host_questions questions;
    project_context context(nullptr, questions);
    const auto start = clock_type::now();
    long after_tenth = 0;
    for (int turn = 0; turn < times; ++turn) {
        if (!context.load_project(path, false, false)) return 1;
        if (turn == times / 10) after_tenth = resident_kib();
    }
    const double seconds = seconds_since(start);
    context.close_project();
    std::printf("seconds=%.6f resident_at_a_tenth=%ld resident_at_end=%ld peak=%ld living=%zu\n", seconds,
                after_tenth, resident_kib(), peak_kib(), vestra::living_objects());
    return vestra::living_objects() == 0 ? 0 : 1;
}

// Runs separately what the run does between the rounds and the first copy.
double seconds_for_common_directory(const project_context& context) {
    const auto start = clock_type::now();
    common_directory common;
    for (const auto& root : context.tree) root->collect_common_directory(common);
    common.compute();
    return seconds_since(start);
}

// The host's part of a load.
int read_xml(const wide_string& path) {
    const auto start = clock_type::now();
    vestra::project project;
    if (vestra::files::read_project(path, project)) return 1;
    std::printf("seconds=%.6f\n", seconds_since(start));
    return 0;
}

int resave(const wide_string& path, const wide_string& target) {
    phase_clock phases;
    const platform::system_override in_force(phases);
    host_questions questions;
    project_context context(nullptr, questions);
    const auto start = clock_type::now();
    if (!context.load_project(path, false, false)) return 1;
    const auto loaded = clock_type::now();
    const double directory = seconds_for_common_directory(context);
    const auto begun = clock_type::now();
    resave_settings settings;
    settings.output_path = &target;
    context.resave_project(settings);
    const auto end = clock_type::now();
    const auto between = [](clock_type::time_point from, clock_type::time_point to) {
        return std::chrono::duration<double>(to - from).count();
    };
    const auto copying = phases.copying.value_or(end), writing = phases.writing.value_or(end);
    const double rounds = between(begun, copying) - directory;
    std::printf("seconds=%.6f load=%.6f rounds=%.6f directory=%.6f save=%.6f write=%.6f peak=%ld files=%zu\n",
                between(start, loaded) + between(begun, end), between(start, loaded), rounds, directory,
                between(copying, writing), between(writing, end), peak_kib(),
                context.placement.placed.size());
    return context.report.saved && context.report.problems().empty() ? 0 : 1;
}

int write_text(const wide_string& path, const wide_string& text_file, bool is_structure) {
    host_questions questions;
    project_context context(nullptr, questions);
    if (!context.load_project(path, false, false)) return 1;
    structure_settings settings;
    settings.output_path = text_file.c_str();
    settings.write_layer_names = settings.write_table_names = settings.write_table_columns = true;
    settings.write_file_paths = true;
    const auto start = clock_type::now();
    const run_result result =
        is_structure ? context.save_structure(settings) : context.check_path_case(text_file);
    std::printf("seconds=%.6f peak=%ld\n", seconds_since(start), peak_kib());
    return result ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "generate" && argc == 6)
        return generate(argv[2], argv[3], std::strtoul(argv[4], nullptr, 10),
                        std::strtoul(argv[5], nullptr, 10));
    if (mode == "copy" && argc == 4) return copy_in_a_loop(argv[2], argv[3]);
    if (mode == "load" && argc == 4) return load(platform::drive_path(argv[2]), std::atoi(argv[3]));
    if (mode == "xml" && argc == 3) return read_xml(platform::drive_path(argv[2]));
    if (mode == "resave" && argc == 4)
        return resave(platform::drive_path(argv[2]), platform::drive_path(argv[3]));
    if ((mode == "structure" || mode == "check-case") && argc == 4)
        return write_text(platform::drive_path(argv[2]), platform::drive_path(argv[3]), mode == "structure");
    std::cerr << "see the head of resave_bench.cpp\n";
    return 2;
}
