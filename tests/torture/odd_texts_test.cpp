// Captions, references and uuids of every shape in a whole run: it ends normally, or the project is rejected.
// Files outside the new project's folder are recorded, and what is missing is reported.
#include <sstream>

#include "tests/torture/generated_area.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> odd_texts() {
    std::istringstream words(
        ". .. ..\\out N:\\out ..\\..\\..\\..\\etc ../../up \\ \\\\ \\\\server\\share\\a \\\\?\\C:\\data\\a "
        "C: C:\\ C:a "
        "C:\\..\\..\\data\\a Q:\\a 1:\\a a:b:c * *C:\\data\\a **..\\a CON nul.shp C:\\data\\com1 "
        "C:\\data\\aux a/b\\c a. .a a..b %s%n -rf ~ $HOME |layer a<b>c?d\"e C:\\data\\a|b C:\\data\\a*b "
        "&#1;&#7;&#31; C:\\data\\&#1; a&#10;b&#13;c&#9;d \xED\xA0\x80 \xED\xB0\x80\xED\xA0\x80 &#55357; "
        "D:/data/y &#xFFFF;&#xFFFE; \xEF\xBB\xBFmark \xE2\x80\xAEturned \xF0\x9F\x97\xBA "
        "\xC4\xB0\xC4\xB1\xC3\x9F");
    std::vector<std::string> all{"", " ", "a ", " a", std::string(300, 'n'), std::string(65536, 'x')};
    for (std::string word; words >> word;) all.push_back(word);
    all.push_back("C:\\data\\" + std::string(65536, 'y'));
    all.emplace_back("C:\\data");
    for (int i = 0; i < 2000; ++i) all.back() += "\\d";
    return all;
}

std::string quoted(const std::string& text) {
    std::string result;
    for (const char c : text) c == '<' ? result += "&lt;" : c == '"' ? result += "&quot;" : result += c;
    return result;
}

// An element of each kind that owns files. `caption` (#) is in all of them, each has its own uuid (%), the
// scene has that one ($), and `file` (~) is before an extension.
std::string project_text(const std::string& caption, const std::string& file, const std::string& uuid) {
    static constexpr std::string_view pattern = R"(
<project version="1"><scenes2d><scene uuid="$"#><layers>
<layer type="shp_pln_lr2d"#% file="~.shp"><attributes file="~.dbf">
<join source="~j.dbf" base_field="0" other_field="0"/></attributes></layer>
<layer type="rtr_lr2d"#% file="~.tif"/><layer type="vs_scene_layer_meta_id"#% file="~._sn"/>
<layer type="plugin_lr_2d_well_hole_2d_3"#% file="~w.wel"/><layer type="tos_grid_lr2d"#% file="~g.tos"/>
<layer type="vector_lr2d"#% file="~v.gml"/><layer type="grid_lr2d"#% file="~d.pgrid"/>
<layer type="tld_lr2d"#% file="~d.tld"/></layers></scene></scenes2d>
<scenes3d><scene#%><layers><layer type="tos_surf_lr3d"#% file="~3.tos"/>
<layer type="segy_lr3d"#% file="~.sgy"/></layers></scene></scenes3d>
<tables><table#% file="~t.dbf"><join source="~j.dbf" base_field="0" other_field="0"/></table></tables>
<tos_tables><tos_table#% file="~o.tos"/></tos_tables>
<layouts><scene#%><layers><layer type="layout_image"#% file="~.png"/>
<layer type="vs_layout_legend_layer_meta_id"#%><legend#%><layers><layer type="rtr_lr2d"#% file="~l.tif"/>
</layers></legend></layer></layers><page type="layout_page" caption="Page"% file="~.fmt"/></scene></layouts>
<plugin_scenes meta="c_scn2d_correlation_collection2"#%><scene#% source="~s.wel"/></plugin_scenes>
</project>)";
    const std::map<char, std::string> texts{
        {'#', " caption=\"" + quoted(caption) + "\""}, {'~', quoted(file)}, {'$', quoted(uuid)}};
    int number = 100;
    std::string text;
    for (const char c : pattern) {
        const auto known = texts.find(c);
        if (known != texts.end())
            text += known->second;
        else if (c == '%')
            text += " uuid=\"00000000-0000-0000-0000-000000000" + std::to_string(++number) + "\"";
        else
            text += c;
    }
    return text;
}

constexpr const char* extensions[] = {".shp",    ".shx",  ".dbf",  "j.dbf",   ".tif",  "._sn", "w.wel",
                                      "w/1.las", "g.tos", "v.gml", "d.tld",   "3.tos", ".sgy", "t.dbf",
                                      "o.tos",   ".png",  "l.tif", "d.pgrid", ".fmt",  "s.wel"};

// True if the path is absolute, as in a file list of the operating system.
bool is_written_out(const wide_string& path) {
    return path.size() > 3 && !path_root(path).empty() && path_normalise(path) == path &&
           path.find(u"\\..") == wide_string::npos;
}

class odd_texts_run : public torture::runs, public testing::WithParamInterface<uint32_t> {
protected:
    // Creates a file that a project at C:\prj refers to by this text, if the disk of C: or D: allows its
    // name.
    void make_file(const std::string& text, const std::string& bytes) {
        const wide_string path = path_resolve(source, platform::from_utf8(text));
        const fs::path file = platform::native_path(path);
        if (text.size() > 200 || (!is_below(file, "c") && !is_below(file, "d"))) return;
        std::error_code failed;
        fs::create_directories(file.parent_path(), failed);
        if (!failed) std::ofstream(file, std::ios::binary) << bytes;
    }
    bool is_below(const fs::path& file, const char* drive) const {
        const fs::path way = file.lexically_normal().lexically_relative(native(drive));
        return !way.empty() && *way.begin() != ".." && *way.begin() != ".";
    }
    void make_files(const std::string& file, const std::string& odd) {
        for (const std::string extension : extensions)
            make_file(file + extension,
                      extension.ends_with(".tos") ? "TOS 1\nmember " + odd + ".tod\n" : "of " + extension);
        if (path_is_relative(platform::from_utf8(odd)))
            make_file(platform::to_utf8(path_head(platform::from_utf8(file))) + odd + ".tod", "of a member");
    }
    void try_text(const std::string& caption, const std::string& file, const std::string& uuid,
                  const std::string& odd) {
        std::error_code empty; // an empty root has no listing on Windows
        for (const char* const drive : {"c", "d", "n"})
            for (const auto& entry : fs::directory_iterator(native(drive), empty))
                if (!test_drives::is_of_the_system(entry.path())) fs::remove_all(entry);
        make_files(file, odd);
        write(source, project_text(caption, file, uuid));
        clear();
        const tree_state before = everything();
        if (torture::runs::run()) {
            EXPECT_TRUE(context->report.unprocessed_types().empty());
            EXPECT_TRUE(context->report.saved || errors().back() == load_string(text::project_not_saved));
            if (context->report.saved) expect_all_there_or_told();
            ++met[context->report.saved ? "odd texts saved" : "odd texts not saved, and told"];
            erase_outside();
        } else {
            EXPECT_EQ((texts{load_string(text::failed_to_load_project)}), errors());
            ++met["odd texts refused"];
        }
        expect_nothing_left();
        clear();
        EXPECT_EQ("", difference(before, everything()));
    }
    // The page of a layout has no file to copy, and wells are not part of a folder for each scene.
    void expect_all_there_or_told() const {
        expect_there_or_told([&](const wide_string& path, const wide_string& owner) {
            return owner == u"Page" || (GetParam() == folder_per_scene && path.ends_with(u"w.wel")) ||
                   (path_exists(path) && placed(&placed_file::new_path).contains(path_key(path)));
        });
    }
    // Files outside the folder must be recorded, so that the command reports them, and result from a path
    // that is not absolute or from a member that climbs.
    void erase_outside() {
        const wide_string below = platform::folded(u"N:\\out\\");
        for (const placed_file& file : context->placement.placed) {
            if (path_key(file.new_path).starts_with(below)) continue;
            EXPECT_TRUE(path_exists(file.new_path) && !is_written_out(file.old_path))
                << platform::to_utf8(file.old_path) << " at " << platform::to_utf8(file.new_path);
            remove_tree(file.new_path);
            ++met["odd texts that lead outside, and told"];
        }
        for (const wide_string& folder : context->placement.created_folders) remove_tree(folder);
    }
    // The drives and everything next to them.
    tree_state everything() const {
        tree_state all = sources();
        all.merge(state_of(native("c").parent_path()));
        all.merge(state_of(native("n")));
        return all;
    }
    std::map<std::string, size_t> met;
};

TEST_P(odd_texts_run, end_in_order_and_write_nothing_outside) {
    const std::string id = "00000000-0000-0000-0000-000000000001", file = "C:\\data\\plain";
    settings.structure_variant = static_cast<project_resave::structure>(GetParam());
    settings.write_log = settings.save_scene_files = settings.save_layer_files = true;
    for (const std::string& odd : odd_texts()) {
        SCOPED_TRACE(odd.substr(0, 40));
        settings.lower_case = !settings.lower_case;
        try_text(odd, odd, id, odd);
        try_text("Plain", odd, id, odd);
        try_text(odd, file, odd, odd);
    }
    EXPECT_LT(0U, met["odd texts saved"]);
    for (const auto& [what, number] : met) torture::count(what.c_str(), number);
}

INSTANTIATE_TEST_SUITE_P(structures, odd_texts_run,
                         testing::Range(uint32_t{by_type}, uint32_t{folder_per_scene} + 1));

} // namespace
} // namespace vs::project_resave
