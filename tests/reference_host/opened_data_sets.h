// Data sets as a bundle opens them, for tests of their files.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "framework/border/ref.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/datasets/open_source.h"

namespace vestra::datasets {

using namespace vs::project_resave;

inline wide_string sample(const std::string& name) {
    return platform::drive_path(std::string(VS_SOURCE_DIR "/samples/area/") + name);
}

inline std::vector<wide_string> sample_files(const std::string& extension) {
    std::vector<wide_string> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(VS_SOURCE_DIR "/samples/area"))
        if (entry.path().extension() == extension)
            paths.push_back(platform::drive_path(entry.path().string()));
    return paths;
}

// Returns the names of a data set's files without their folder, each after a space; "-" if it does not open.
inline std::string names_of(const wide_string& path, const wide_string& folder) {
    const ref<stat_source_impl> source(cast_to<stat_source_impl>(open_source(path, nullptr)));
    if (!source) return "-";
    std::vector<wide_string> files;
    stdwstring_list_visitor list(files);
    call<&stat_source_impl::files>(source.get(), list);
    std::string names;
    for (const wide_string& file : files)
        names += " " + platform::to_utf8(file.starts_with(folder) ? file.substr(folder.size()) : file);
    return names;
}

// Checks that a sample opens with these files under the requested name.
inline void expect_family(const char* folder, const char* name, const std::string& files) {
    const wide_string head = sample(folder) + u"\\";
    EXPECT_EQ(files, names_of(head + platform::from_utf8(name), head)) << name;
}

} // namespace vestra::datasets
