// A project with families of files that share names and companions, in three folders of C:.
#pragma once

#include "tests/support/builder_run.h"
#include "tests/support/references_of.h"
#include "tests/torture/torture.h"

namespace vs::project_resave::torture {

// `bytes` is the approximate size of each shape, raster and table.
inline void write_generated_area(const wide_string& project, size_t bytes,
                                 const std::function<void(const wide_string&, std::string_view)>& write) {
    project_builder made;
    made.scene_2d(u"Area");
    for (const wide_string place : {u"a", u"b", u"c"}) {
        const wide_string folder = u"C:\\data\\" + place + u"\\";
        std::string content;
        while (content.size() < bytes) content += "of " + platform::to_utf8(folder) + '\n';
        for (const wide_view name : {u"a.shp", u"a.dbf", u"r.tif", u"r.tif.ovr", u"t.dbf", u"joined.dbf"})
            write(folder + wide_string(name), content);
        for (const wide_view name : {u"a.shx", u"a.cpg", u"a_shp.pj4", u"r.tfw", u"r.tfr", u"r_tif.pj4",
                                     u"t.cpg", u"w.wel", u"w\\1\\core.txt", u"w\\log.txt"})
            write(folder + wide_string(name), platform::to_utf8(folder));
        write(folder + u"p.tos", "TOS 1\n");
        made.layer("shp_pln_lr2d", u"Shape " + place, folder + u"a.shp").join(folder + u"joined.dbf");
        made.layer("rtr_lr2d", u"Raster " + place, folder + u"r.tif");
        made.layer("plugin_lr_2d_well_hole_2d_3", u"Well " + place, folder + u"w.wel");
        made.table(u"Table " + place, folder + u"t.dbf").join(folder + u"joined.dbf");
    }
    made.scene_3d(u"Solid").layer("tos_surf_lr3d", u"Surface", u"C:\\data\\a\\p.tos");
    made.save(project);
}

// Runs into an empty folder repeatedly.
class runs : public host_fixture {
protected:
    // Checks that everything that a run opened and created in the host is closed and destroyed.
    void expect_nothing_left() const {
        EXPECT_EQ(0U, script.open_windows);
        EXPECT_EQ(0U, vestra::living_objects());
        const open_descriptors now = descriptors();
        EXPECT_EQ(before_run.files, now.files);
        EXPECT_GE(4U, now.folders);
    }
    void clear() const {
        clear_output();
        vestra::shell::settings().refused_writes.clear();
    }
    // Returns everything that a run, or the command after it, reports.
    wide_string told_text() const {
        wide_string all;
        for (const fact& each : context->report.facts()) {
            if (each.kind == fact_kind::renamed || each.kind == fact_kind::written_over) continue;
            for (const wide_string& what :
                 {each.subject, path_file_name(each.path), path_file_name(each.new_path)})
                all += u"! " + what + u"\n";
        }
        for (const auto& [key, refused] : vestra::shell::settings().refused_writes.all())
            all += u"! " + path_file_name(refused.file) + u"\n";
        return all;
    }
    bool is_told(wide_view what) const { return told_text().find(what) != wide_string::npos; }
    // Returns the broken references of the new project by path, with the caption of their element.
    std::map<wide_string, wide_string> astray() const {
        vestra::project project;
        read_back(output, project);
        std::map<wide_string, wide_string> found;
        for (const reference& each : references_of(project))
            if (!path_key(each.path).starts_with(platform::folded(u"N:\\out\\")) || !path_exists(each.path))
                found.emplace(each.path, each.owner);
        return found;
    }
    // Loads and runs into an empty folder on `files`. Returns false if the project was not loaded. Checks
    // that each file or folder that the run counts as copied equals its source.
    bool run(platform::system& files = platform::current_system()) {
        clear();
        script.events.clear();
        std::optional<platform::system_override> in_force(std::in_place, files);
        const bool loaded = context->load_project(source, false, false);
        if (loaded) resave();
        in_force.reset();
        if (!loaded || context->report.stopped) return loaded; // all may be erased
        for (const placed_file& file : context->placement.placed) {
            if (file.old_path.empty() || path_extension(file.old_path).starts_with(u"._")) continue;
            const auto from = platform::native_path(file.old_path), to = platform::native_path(file.new_path);
            EXPECT_EQ(read(file.old_path), read(file.new_path)) << platform::to_utf8(file.new_path);
            EXPECT_EQ("", difference(state_of(from), state_of(to))) << platform::to_utf8(file.new_path);
        }
        return loaded;
    }
    // Checks that every reference of the new project exists, is reported by its name or that of its element,
    // or is `excused`.
    void expect_there_or_told(
        const std::function<bool(const wide_string& path, const wide_string& owner)>& excused) const {
        for (const auto& [path, owner] : astray())
            EXPECT_TRUE(excused(path, owner) || (!owner.empty() && is_told(owner)) ||
                        names_original(told_text(), path))
                << "refers to " << platform::to_utf8(path) << " of " << platform::to_utf8(owner);
    }
    // Returns the keys of all sources, or of all copies, of a run.
    std::set<wide_string> placed(wide_string placed_file::*path) const {
        std::set<wide_string> keys;
        for (const placed_file& file : context->placement.placed) keys.insert(path_key(file.*path));
        return keys;
    }
    // True if `told` contains the original name of this copy; a new name has its number last.
    static bool names_original(const wide_string& told, wide_string path) {
        path = path_file_name(path);
        const size_t number = path.find(u"_(");
        if (number != wide_string::npos) path.erase(number, path.find(u')') + 1 - number);
        return told.find(path) != wide_string::npos;
    }
    // True if it contains its own name, that of a file with its stem, or that of its folder.
    static bool names_family(const wide_string& told, const wide_string& path) {
        const wide_string all = platform::folded(told), stem = platform::folded(path_stem(path));
        const wide_string folder = path_head(platform::folded(path));
        const wide_string holder = path_stem(folder.substr(0, folder.size() - 1));
        for (const wide_string& name : {stem + u'.', stem + u'\n', holder + u'.', holder + u'\n'})
            if (all.find(u' ' + name) != wide_string::npos) return true;
        return false;
    }

    // Counted after a run, because libraries of the host then keep some files open.
    open_descriptors before_run = descriptors();
};

} // namespace vs::project_resave::torture
