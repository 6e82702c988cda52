// The C functions as a whole: the contract page, the headers and the handling of null handles.
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "framework/string_adapter.h"
#include "reference_host/model/counted.h"
#include "tests/reference_host/host_functions.h"

namespace {

// Library and name to the whole declaration.
using declarations = std::map<std::pair<std::string, std::string>, std::string>;

std::string text_of(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

declarations declared_in_headers() {
    static const std::regex noise("//[^\n]*|#[^\n]*|extern \"C\" \\{");
    static const std::regex declaration("([\\w ]+\\*?) (\\w+)\\(([^)]*)\\);");
    declarations found;
    const std::filesystem::path folder =
        std::filesystem::path(VS_SOURCE_DIR) / "plugin/app/project_resave_bdl/host";
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (!entry.path().filename().string().starts_with("vsk_")) continue;
        std::string text = std::regex_replace(text_of(entry.path()), noise, "");
        text = std::regex_replace(text, std::regex("\\s+"), " ");
        for (std::sregex_iterator row(text.begin(), text.end(), declaration), end; row != end; ++row) {
            const std::string result = std::regex_replace((*row)[1].str(), std::regex("^ +"), "");
            found[{entry.path().stem().string(), (*row)[2]}] = result + " (" + (*row)[3].str() + ")";
        }
    }
    return found;
}

declarations told_on_the_page() {
    static const std::regex heading("^## (\\w+)$");
    static const std::regex row("^\\| `(\\w+)` \\| (?:-|`([^`]*)`) \\| `([^`]*)` \\| (.+) \\|$");
    declarations found;
    std::istringstream page(text_of(std::filesystem::path(VS_SOURCE_DIR) / "docs/host_contract.md"));
    std::smatch match;
    std::string library;
    for (std::string line; std::getline(page, line);) {
        if (std::regex_match(line, match, heading)) library = match[1];
        if (std::regex_match(line, match, row))
            found[{library, match[1]}] = match[3].str() + " (" + match[2].str() + ")";
    }
    return found;
}

// Calls with zero for every argument, but with a real adapter behind the handle it asks about.
template <class Result, class... Args>
bool answers_nothing(Result (*function)(Args...)) {
    vs::project_resave::wide_string text = u"before";
    vs::project_resave::Tvs_std_wstring_adapter adapter(text);
    constexpr bool tells_text = sizeof...(Args) > 1 && (std::is_same_v<Args, vs_string_adp*> || ...);
    const auto argument = [&]<class T>(std::type_identity<T>) -> T {
        if constexpr (tells_text && std::is_same_v<T, vs_string_adp*>)
            return adapter;
        else
            return T();
    };
    if constexpr (std::is_void_v<Result>) {
        function(argument(std::type_identity<Args>())...);
        return !tells_text || text.empty();
    } else {
        const Result result = function(argument(std::type_identity<Args>())...);
        if constexpr (std::is_same_v<Result, const char*>)
            if (result) return *result == '\0';
        return result == Result();
    }
}

// Tries each function; name to whether it answered nothing.
template <class... Functions>
std::map<std::string, bool> tried(const std::string& names, Functions... functions) {
    std::map<std::string, bool> outcomes;
    std::istringstream words(std::regex_replace(names, std::regex(","), " "));
    std::string name;
    ((words >> name, outcomes[name] = answers_nothing(functions)), ...);
    return outcomes;
}
#define TRIED(...) tried(#__VA_ARGS__, __VA_ARGS__)

std::map<std::string, bool> null_handles_tried() {
    return TRIED(
        vs_attrs_data_safe_upcast, vs_attrs_data_get_size, vs_attrs_data_get, vs_attrs_data_del,
        vs_table_data_safe_upcast, vs_attr_data_safe_upcast, vs_attr_data_safe_downcast, vs_attr_data_destroy,
        vs_attr_data_get_wcaption, vs_attr_data_get_wfilename, vs_attr_data_set_wfilename,
        vs_attr_data_is_joined, vs_attr_data_get_join_count, vs_attr_data_get_join_other_source,
        vs_attr_data_get_join_base_field, vs_attr_data_get_join_other_field, vs_attr_data_join,
        vs_attr_data_unjoin, vs_attr_files_open, vs_attr_files_close, vs_attr_files_get_np,
        vs_attr_files_get_field_name, vs_attr_files_get_field_is_joined, vs_string_adp_destroy,
        vs_wstrings_destroy, vs_wstrings_get_size, vs_wstrings_get_str, vs_wstrings_add, vs_uuid_destroy,
        vs_uuid_assign, vs_uuid_equal, vs_uuid_has_value, vs_uuid_to_string, vs_uuid_from_string,
        vs_dib_destroy, vs_dib_get_width, vs_dib_get_height, vs_dib_get_bits, any_get_type, any_get_tuple,
        any_get_wstring, any_assign_tuple, any_assign_wstring, tuple_destroy, tuple_get_size, tuple_resize,
        tuple_get_element, vs_datasource_open, vs_entity_get_uuid, vs_entity_get_wcaption,
        vs_entity_get_meta_id, vs_entity_get_parent, vs_entity_is_valid, vs_entities_safe_upcast,
        vs_entities_safe_downcast, vs_entities_get_count, vs_entities_get_entity, vs_entities_clear,
        vs_tos4_file_close, vs_tos4_get_prop_count, vs_tos4_get_prop_caption_w, vs_scn_layout_get_page_lr2d,
        vs_layout_scene_frame_lr2d_get_scene, vs_layout_lr2d_get_plugin_interface, vs_lr_safe_upcast,
        vs_lr_safe_downcast, vs_lr_get_wcaption, vs_lr_get_wfilename, vs_lr_set_wfilename, vs_lr_get_wsource,
        vs_lr_get_lr_type, vs_lr_get_uuid, vs_lr_get_visible, vs_lr_is_valid, vs_lr_get_data_ptr,
        vs_lr_get_table_extra, vs_lr_get_extra, vs_lr_get_style_mngr_ptr, vs_lr_get_style_mngr_list_ptr,
        vs_lr_group_get_count_child, vs_lr_group_get_child_by_index, vs_lr_group_is_group,
        vs_lr_group_get_lr_ptr, vs_lr_group_get_wcaption, vs_lr_group_erase_empty_group,
        vs_lr2d_safe_downcast, vs_lr2d_get_lr_type, vs_lr2d_get_wcaption, vs_lr2d_get_wfilename,
        vs_lr3d_safe_downcast, vs_lr3d_get_lr_type, vs_lr3d_get_wcaption, vs_shp_lr3d_get_attr_data_ptr,
        vs_progress_destroy, vs_progress_show, vs_progress_indeterminate, vs_progress_wcaption,
        vs_progress_get_stopped, vs_progress_reset, vs_wait_destroy, vs_lr2d_get_plugin_interface,
        vs_prj_destroy, vs_prj_get_filename, vs_prj_get_scns_2d_ptr, vs_prj_get_scns_3d_ptr,
        vs_prj_get_toss_data_ptr, vs_prj_get_layouts_data_ptr, vs_prj_get_attrs_data_ptr,
        vs_prj_get_plugin_scns_2d_count, vs_prj_get_plugin_scns_2d_ptr, vs_prj_get_maplegs_ptr,
        vs_scns_2d_safe_upcast, vs_scns_2d_get_size, vs_scns_2d_get, vs_scns_2d_del, vs_scn_2d_destroy,
        vs_scn_2d_safe_upcast, vs_scn_2d_safe_downcast, vs_scn_2d_get_wcaption, vs_scn_2d_get_layer_count,
        vs_scn_2d_get_layer_ptr, vs_scn_2d_del_lr2d, vs_scn_2d_get_lr_group_ptr, vs_scn_2d_get_source,
        vs_scn_2d_set_source, vs_scn_safe_upcast, vs_scn_get_wcaption, vs_scn_get_lr_group_ptr,
        vs_scn_get_count, vs_scn_get_layer, vs_scns_3d_safe_upcast, vs_scns_3d_get_size, vs_scns_3d_get,
        vs_scns_3d_del, vs_scn_3d_safe_upcast, vs_scn_3d_safe_downcast, vs_scn_3d_get_wcaption,
        vs_scn_3d_get_layer_count, vs_scn_3d_get_layer_ptr, vs_scn_3d_del_lr3d, vs_shp_lr2d_get_attr_data_ptr,
        vs_stl_mngr_get_style_type, vs_stl_mngr_assign, vs_stl_mngr_destroy, vs_stl_mngr_list_get_type,
        vs_stl_mngr_list_assign, vs_stl_mngr_list_destroy, vs_maplegs_get_size, vs_maplegs_get_ptr,
        vs_maplegs_delete_elem, vs_mapleg_get_uuid, vs_mapleg_get_title, vs_toss_data_safe_upcast,
        vs_toss_data_get_size, vs_toss_data_get, vs_toss_data_del, vs_tos_data_safe_upcast,
        vs_tos_data_get_wcaption, vs_tos_data_get_wfilename, vs_tos_data_set_wfilename,
        vs_xml_save_2d_destroy, vs_xml_data_load_scn2d_w, vs_xml_data_save_scn2d_w, vs_xml_data_save_lr2d_w,
        vs_xml_save_3d_destroy, vs_xml_data_save_scn3d_w, vs_xml_data_save_lr3d_w, vs_xml_save_prj_destroy,
        vs_xml_data_load_prj_w, vs_xml_data_save_prj_w);
}

TEST(contract, page_and_headers_name_the_same_functions) {
    const declarations headers = declared_in_headers();
    const declarations page = told_on_the_page();
    EXPECT_GT(headers.size(), 190U);
    for (const auto& [key, declaration] : headers) {
        const auto told = page.find(key);
        EXPECT_EQ(told == page.end() ? "not on the page" : told->second, declaration)
            << key.first << " " << key.second;
    }
    for (const auto& [key, declaration] : page)
        EXPECT_TRUE(headers.contains(key)) << key.first << " " << key.second << " is only on the page";
}

TEST(contract, null_handles_are_harmless_everywhere) {
    static const std::regex handle("vs_\\w+\\*");
    std::set<std::string> with_handles;
    for (const auto& [key, declaration] : declared_in_headers())
        if (std::regex_search(declaration.substr(declaration.find('(')), handle))
            with_handles.insert(key.second);
    const std::map<std::string, bool> outcomes = null_handles_tried();
    for (const std::string& name : with_handles)
        EXPECT_TRUE(outcomes.contains(name)) << name << " is not tried";
    for (const auto& [name, answered_nothing] : outcomes) EXPECT_TRUE(answered_nothing) << name;
    EXPECT_EQ(vestra::living_objects(), 0U);
}

} // namespace
