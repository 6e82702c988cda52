// Measures the bundle in the reference host, one thing in each process, so that peak memory belongs to it.
//
//     resave-bench generate FOLDER LAYERS BYTES     FOLDER/prj/area._vp with so many shapes, two files each
//     resave-bench load PROJECT TIMES               loads it again and again
//     resave-bench resave PROJECT NEW_PROJECT
//
// `load` and `resave` print one line of figures: name=value, seconds and KiB.
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "operations/project_context.h"
#include "platform/volumes.h"
#include "reference_host/files/files.h"
#include "reference_host/shell/front_end.h"

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

// Resident now, not at the peak.
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

// A thousand files to a folder, as people keep them; a hundred layers to a scene.
int generate(const std::filesystem::path& folder, size_t layers, size_t bytes) {
    vestra::project project;
    vestra::scene* scene = nullptr;
    std::string content(std::max<size_t>(bytes, 100), 'x');
    content.replace(0, 4, "\x00\x00\x27\x0a", 4); // the mark of a shape file
    const wide_string root = platform::drive_path(folder.string());
    for (size_t index = 0; index < layers; ++index) {
        if (index % 100 == 0) {
            scene = &project.scenes_2d.make_scene();
            scene->caption = u"Scene " + number(index / 100);
            scene->id = vestra::uuid::random();
        }
        const std::string place = "data/" + std::to_string(index / 1000);
        std::filesystem::create_directories(folder / place);
        for (const char* extension : {".shp", ".shx"}) {
            const std::string name = "file" + std::to_string(index) + extension;
            std::ofstream(folder / place / name, std::ios::binary) << content;
        }
        vestra::layer& layer = scene->make_layer("shp_pnt_lr2d");
        layer.id = vestra::uuid::random();
        layer.caption = u"Layer " + number(index);
        layer.file = root + u"\\data\\" + number(index / 1000) + u"\\file" + number(index) + u".shp";
    }
    std::filesystem::create_directories(folder / "prj");
    if (const auto error = vestra::files::write_project(root + u"\\prj\\area._vp", project)) return 1;
    return 0;
}

int load(const wide_string& path, int times) {
    project_context context(nullptr);
    const auto start = clock_type::now();
    long after_tenth = 0;
    for (int turn = 0; turn < times; ++turn) {
        if (!context.load_project(path, false, false)) return 1;
        if (turn == times / 10) after_tenth = resident_kib();
    }
    const double seconds = seconds_since(start);
    context.close_project();
    std::printf("seconds=%.3f resident_at_a_tenth=%ld resident_at_end=%ld peak=%ld living=%zu\n", seconds,
                after_tenth, resident_kib(), peak_kib(), vestra::living_objects());
    return vestra::living_objects() == 0 ? 0 : 1;
}

int resave(const wide_string& path, const wide_string& target) {
    project_context context(nullptr);
    const auto start = clock_type::now();
    if (!context.load_project(path, false, false)) return 1;
    const double loaded = seconds_since(start);
    resave_settings settings;
    settings.output_path = &target;
    context.resave_project(settings);
    const double seconds = seconds_since(start);
    std::printf("seconds=%.3f load=%.3f peak=%ld files=%zu saved=%d problems=%zu\n", seconds, loaded,
                peak_kib(), context.placement.placed.size(), context.report.saved,
                context.report.problems.size());
    return context.report.saved && context.report.problems.empty() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "generate" && argc == 5)
        return generate(argv[2], std::strtoul(argv[3], nullptr, 10), std::strtoul(argv[4], nullptr, 10));
    if (mode == "load" && argc == 4) return load(platform::drive_path(argv[2]), std::atoi(argv[3]));
    if (mode == "resave" && argc == 4)
        return resave(platform::drive_path(argv[2]), platform::drive_path(argv[3]));
    std::cerr << "see the head of resave_bench.cpp\n";
    return 2;
}
