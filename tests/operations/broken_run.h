// Runs that a stop or a fault interrupts.
#pragma once

#include <sstream>

#include "tests/support/builder_run.h"

namespace vs::project_resave {

class broken_run : public builder_run {
protected:
    // Fills `builder` with one file of each family that is copied in a special way. Each contains its name.
    void make_small_project() {
        for (const wide_string name :
             {u"a.shp", u"a.shx", u"a.dbf", u"a.cpg", u"a_shp.pj4", u"r.tif", u"r.tif.ovr", u"r.tfw",
              u"r.tfr", u"w.wel", u"w\\logs\\1.las", u"t.dbf", u"t.cpg", u"joined.dbf", u"joined.cpg"})
            write(u"C:\\data\\" + name, platform::to_utf8(name));
        write(u"C:\\data\\p.tos", "TOS 1\n");
        builder.scene_2d(u"Area 1").layer("shp_pln_lr2d", u"A", u"C:\\data\\a.shp");
        builder.layer("rtr_lr2d", u"R", u"C:\\data\\r.tif");
        builder.layer("plugin_lr_2d_well_hole_2d_3", u"W", u"C:\\data\\w.wel").scene_3d(u"Solid");
        builder.layer("tos_surf_lr3d", u"P", u"C:\\data\\p.tos").table(u"T", u"C:\\data\\t.dbf");
        builder.join(u"C:\\data\\joined.dbf");
    }
    // Whatever the result, the source is unchanged.
    void resave() {
        const tree_state before = sources();
        host_fixture::resave();
        EXPECT_EQ("", difference(before, sources()));
    }
    // Runs once with the loaded project, with the stop button pressed at this poll, 0 for never, and this
    // answer to the question whether to erase.
    void stop_at(size_t poll, answer given) {
        load();
        script.stop_at_poll = poll;
        script.answers = {given, answer::no};
        resave();
    }
    tree_state target() const { return state_of(native("n")); }

    void expect_nothing_left_over() const {
        EXPECT_FALSE(context->project);
        EXPECT_TRUE(context->tree.empty() && context->units.rows().empty());
        EXPECT_TRUE(context->joins.pending.empty());
        EXPECT_EQ(u"files", context->placement.type_folder);
        EXPECT_EQ(nullptr, context->placement.scene_common);
        EXPECT_EQ(0U, script.open_windows);
        EXPECT_EQ(1U, changes);
    }
    // Checks what the user is shown after a stopped run.
    void expect_told_as_stopped() const {
        EXPECT_EQ((events{{kind::yes_no_cancel, load_string(text::erase_created_files)},
                          {kind::wait, load_string(text::wait_for_end)},
                          {kind::message, load_string(text::interrupted_by_user)},
                          {kind::yes_no, load_string(text::reopen_source_project)}}),
                  told());
    }
    // Checks that each copy equals its source, that older files are unchanged, and that there are no others.
    void expect_whole_copies(const tree_state& before) const {
        std::set<wide_string> known; // letter case aside: a folder may have been there in another one
        for (const auto& [old_path, new_path] : context->placement.placed) {
            known.insert(path_key(new_path));
            if (old_path.empty() || old_path == source || old_path.ends_with(u"._sn")) continue; // written
            const auto from = platform::native_path(old_path), to = platform::native_path(new_path);
            EXPECT_EQ(read(old_path), read(new_path)) << platform::to_utf8(new_path);
            EXPECT_EQ("", difference(state_of(from), state_of(to)));
        }
        std::istringstream changed(difference(before, target()));
        for (std::string line; std::getline(changed, line);) {
            ASSERT_TRUE(line.starts_with("new: ")) << line;
            if (std::filesystem::is_directory(native("n") / line.substr(5))) continue;
            wide_string place = path_key(u"N:\\" + platform::from_utf8(line.substr(5)));
            for (size_t end; !known.contains(place) && (end = place.rfind(u'\\')) != wide_string::npos;)
                place.erase(end); // a copy of a folder is known as one
            EXPECT_TRUE(known.contains(place)) << line;
        }
    }
};

} // namespace vs::project_resave
