// What the tabs make of settings that are set by code, and read back.
#include <gtest/gtest.h>

#include "ui/save_prj_tab.h"
#include "ui/save_struct_tab.h"

namespace vs::project_resave {
namespace {

TEST(settings_of_tabs, an_unknown_structure_is_folders_by_type_and_any_other_is_kept) {
    const wide_string source_path;
    wide_string new_path;
    save_prj_tab tab(source_path, new_path);
    const std::pair<uint32_t, uint32_t> table[] = {{3, 3}, {7, 0},          {4, 4}, {5, 0},
                                                   {1, 1}, {UINT32_MAX, 0}, {2, 2}, {0, 0}};
    for (const auto& [set, expected] : table) {
        resave_settings settings, read;
        settings.structure_variant = set;
        settings.consider_project_file = set % 2 == 0;
        size_t changes = 0;
        tab.set_on_structure_variant_changed([&] { ++changes; });
        tab.apply_settings(settings);
        EXPECT_EQ(2U, changes) << "one goes off, one goes on: " << set;
        tab.get_settings(read);
        EXPECT_EQ(expected, read.structure_variant) << set;
        EXPECT_EQ(set % 2 == 0, read.consider_project_file) << set;
        tab.apply_settings(settings);
        EXPECT_EQ(2U, changes) << "told again it changes nothing: " << set;
    }
}

TEST(settings_of_tabs, options_of_the_structure_bring_along_what_they_need_also_when_set_by_code) {
    using all = structure_settings;
    bool all::*const flags[] = {&all::write_layer_names,    &all::write_table_names,
                                &all::write_table_columns,  &all::write_layout_layers,
                                &all::write_legend_content, &all::write_legend_columns,
                                &all::write_file_paths};
    // One after the other on the same tab.
    const std::pair<std::string, std::string> table[] = {
        {"0010000", "1110000"}, {"0000010", "0001110"}, {"0001010", "0001110"}, {"0000100", "0001100"},
        {"0100001", "0100001"}, {"1111111", "1111111"}, {"0000000", "0000000"}};
    save_struct_tab tab;
    for (const auto& [set, expected] : table) {
        structure_settings settings, read;
        for (size_t flag = 0; flag < std::size(flags); ++flag) settings.*flags[flag] = set[flag] == '1';
        settings.indent_text = u" ";
        tab.apply_settings(settings);
        tab.get_settings(read);
        std::string found;
        for (const auto flag : flags) found += read.*flag ? '1' : '0';
        EXPECT_EQ(expected, found) << set;
        EXPECT_EQ(wide_string(u"\t"), read.indent_text) << "the list stays on its row";
    }
}

} // namespace
} // namespace vs::project_resave
