// Captions, references and uuids of every shape through a whole run: it ends in order, or the project is
// refused; and nothing is written but below the new project's folder.
#include <sstream>

#include "core/paths.h"
#include "framework/strings.h"
#include "tests/torture/generated_area.h"
#include "tests/torture/torture.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> odd_texts() {
    std::istringstream words(
        ". .. ..\\..\\..\\..\\etc ../../up \\ \\\\ \\\\server\\share\\a \\\\?\\C:\\data\\a C: C:\\ C:a "
        "C:\\..\\..\\data\\a Q:\\a 1:\\a a:b:c * *C:\\data\\a **..\\a CON nul.shp C:\\data\\com1 "
        "C:\\data\\aux a/b\\c a. .a a..b %s%n -rf ~ $HOME |layer a<b>c?d\"e C:\\data\\a|b C:\\data\\a*b "
        "&#1;&#7;&#31; C:\\data\\&#1; a&#10;b&#13;c&#9;d \xED\xA0\x80 \xED\xB0\x80\xED\xA0\x80 &#55357; "
        "&#xFFFF;&#xFFFE; \xEF\xBB\xBFmark \xE2\x80\xAEturned \xF0\x9F\x97\xBA \xC4\xB0\xC4\xB1\xC3\x9F");
    std::vector<std::string> all{"", " ", "a ", " a", std::string(300, 'n'), std::string(65536, 'x')};
    for (std::string word; words >> word;) all.push_back(word);
    all.push_back("C:\\data\\" + std::string(65536, 'y'));
    all.emplace_back("C:\\data");
    for (int i = 0; i < 2000; ++i) all.back() += "\\d";
    return all;
}

std::string quoted(const std::string& text) {
    std::string result;
    for (const char c : text) result += c == '<' ? "&lt;" : c == '"' ? "&quot;" : std::string(1, c);
    return result;
}

// A scene with a shape, a raster, a map and a well, a table with a join and a layout; `caption` is in all of
// them, and `file` followed by an extension.
std::string project_text(const std::string& caption, const std::string& file, const std::string& uuid) {
    const std::string named = " caption=\"" + quoted(caption) + "\" ";
    int number = 100;
    const auto id = [&number] {
        return " uuid=\"00000000-0000-0000-0000-000000000" + std::to_string(++number) + "\"";
    };
    const auto at = [&](const char* extension) { return "\"" + quoted(file) + extension + "\""; };
    const auto layer = [&](const char* type, const char* extension) {
        return "<layer type=\"" + std::string(type) + "\"" + named + id() + " file=" + at(extension) + "/>";
    };
    return "<project version=\"1\"><scenes2d><scene uuid=\"" + quoted(uuid) + "\"" + named + "><layers>" +
           layer("shp_pln_lr2d", ".shp") + layer("rtr_lr2d", ".tif") +
           layer("vs_scene_layer_meta_id", "._sn") + layer("plugin_lr_2d_well_hole_2d_3", "w.wel") +
           layer("tos_surf_lr2d", ".tos") + layer("dxf_lr2d", ".dxf") +
           "</layers></scene></scenes2d></project>";
}

class odd_texts_run : public torture::runs, public testing::WithParamInterface<uint32_t> {
protected:
    // Makes the files that the layers refer to, where a disk can hold such names below C:\data.
    void make_files(const std::string& file) {
        if (!file.starts_with("C:\\data\\") || file.size() > 200 || file.find('&') != std::string::npos)
            return;
        for (const char* extension : {".shp", ".shx", ".dbf", ".tif", "w.wel", ".tos"}) {
            const wide_string path = platform::from_utf8(file + extension);
            if (!platform::native_path(path).empty()) write(path, "data");
        }
    }
    void run(const std::string& caption, const std::string& file, const std::string& uuid) {
        clear();
        make_files(file);
        write(source, project_text(caption, file, uuid));
        const tree_state before = state_of(drives);
        script.events.clear();
        if (!context->load_project(source, false, false)) {
            EXPECT_EQ((std::vector<wide_string>{load_string(500)}), errors());
            ++refused;
        } else {
            settings.structure_variant = GetParam();
            resave();
            EXPECT_TRUE(context->report.saved || errors().back() == load_string(509));
            vestra::project made;
            if (context->report.saved) read_back(output, made);
            ++(context->report.saved ? saved : not_saved);
        }
        // Below N:\\out alone is anything new.
        clear();
        EXPECT_EQ("", difference(before, state_of(drives)));
        EXPECT_EQ(1U, state_of(native("n")).size() + state_of(native("d")).size());
    }
    const fs::path drives = native("c").parent_path();
    size_t refused = 0, saved = 0, not_saved = 0;
};

TEST_P(odd_texts_run, end_in_order_and_write_nothing_outside) {
    const std::string id = "00000000-0000-0000-0000-000000000001", file = "C:\\data\\plain";
    settings.write_log = settings.save_scene_files = settings.save_layer_files = true;
    for (const std::string& odd : odd_texts()) {
        SCOPED_TRACE(odd.substr(0, 40));
        settings.lower_case = !settings.lower_case;
        run(odd, odd, id);
        run("Plain", odd, id);
        run(odd, file, odd);
    }
    EXPECT_LT(0U, saved);
    torture::count("odd texts saved", saved);
    torture::count("odd texts not saved, and told", not_saved);
    torture::count("odd texts refused", refused);
}

INSTANTIATE_TEST_SUITE_P(structures, odd_texts_run,
                         testing::Values(uint32_t{by_type}, uint32_t{from_project_folder},
                                         uint32_t{folder_per_scene}));

} // namespace
} // namespace vs::project_resave
