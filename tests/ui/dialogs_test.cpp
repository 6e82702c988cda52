// The naming dialog as a host meets it: through its service and the tables of its elements.
#include <gtest/gtest.h>

#include <optional>

#include "reference_host/model/counted.h"
#include "reference_host/shell/service_registry.h"
#include "reference_host/shell/settings.h"
#include "reference_host/toolkit/dialog_connections.h"
#include "reference_host/toolkit/scripted_dialog_runner.h"
#include "tests/support/scripted_front_end.h"
#include "tests/support/temporary_folder.h"
#include "ui/dialog_factories.h"
#include "ui/dialogs.h"

namespace vs::project_resave {
namespace {

using namespace vestra::toolkit;
using vestra::shell::scripted_front_end;

// The naming dialog of the bundle, offered to a host's registry.
struct offered {
    offered() { registry.add(u"", pointer_to<service_factory_impl>(factory), {}); }
    unique_name_dialog_factory factory;
    vestra::shell::service_registry registry;
};

class dialogs : public testing::Test {
protected:
    dialogs() { vestra::shell::settings().language_offset = 50000; }
    ~dialogs() override {
        vestra::shell::settings().language_offset = 0;
        EXPECT_EQ(0u, vestra::living_objects());
    }
    unique_name_answer ask(scripted_dialog_runner::script script) {
        scripted_dialog_runner runner(std::move(script));
        const offered offer;
        const dialog_connections connections(runner);
        return show_unique_name_dialog(u"D:\\gis\\source.shp", proposed);
    }

    temporary_folder folder;
    const wide_string proposed = folder.write(u"proposed.shp"), taken = folder.write(u"taken.shp");
    const wide_string free = folder.path(u"free.shp");
    scripted_front_end shown;
    vestra::shell::front_end_override in_force{shown};
};

const wide_string name_exists = u"File with such name already exists. Please set new file name.";

TEST_F(dialogs, the_naming_dialog_shows_what_collides_and_empties_its_field_of_a_name_that_exists) {
    struct changes final : element_observer_impl {
        void on_changed(element) override { ++count; }
        int count = 0;
    } observed;
    const unique_name_answer answer = ask([&](const element_view& dialog) {
        EXPECT_EQ(u"Attention! Naming conflict!", dialog.caption);
        const wide_string texts[] = {name_exists, u"D:\\gis\\source.shp", u"Set path for saving file:",
                                     proposed};
        for (size_t row = 0; row < std::size(texts); ++row)
            EXPECT_EQ(texts[row], dialog.children.at(0).children.at(row).text);
        const element_view& field = *find(dialog, u"file_input");
        call<&element_impl::set_observer>(field.live, pointer_to<element_observer_impl>(observed));
        EXPECT_FALSE(enter_text(field, taken));
        EXPECT_EQ(u"", look_at(field.live).text);
        EXPECT_EQ(1, observed.count) << "the host must know that the field is empty now";
        call<&element_impl::set_observer>(field.live, element_observer());
        return 1;
    });
    EXPECT_EQ(std::vector<wide_string>{name_exists}, shown.texts(scripted_front_end::kind::error));
    EXPECT_EQ(u"", answer.path);
}

TEST_F(dialogs, only_a_path_that_was_accepted_and_is_free_reaches_the_run) {
    const struct {
        const char* what;
        std::optional<wide_string> entered;
        int32_t closed_with;
        bool is_accepted;
        wide_string path;
    } rows[] = {
        {"free path", free, -7, true, free},
        {"cancelled", free, 0, false, u""},
        {"untouched proposal", std::nullopt, 1, true, u""},
        {"emptied field", u"", 1, true, u""},
        {"folder of that name", folder.path(), 1, true, u""},
        {"came into being while the dialog stood open", folder.path(u"late.shp"), 1, true, u""},
    };
    for (const auto& row : rows) {
        const unique_name_answer answer = ask([&](const element_view& dialog) {
            if (row.entered) enter_text(*find(dialog, u"file_input"), *row.entered);
            folder.write(u"late.shp");
            return row.closed_with;
        });
        EXPECT_EQ(row.is_accepted, answer.accepted) << row.what;
        EXPECT_EQ(row.path, answer.path) << row.what;
        std::filesystem::remove(folder.native() / "late.shp");
    }
}

// The host never brought a runner, or lets the bundle's service go before it.
TEST_F(dialogs, without_a_service_or_a_runner_nothing_is_shown_and_nothing_accepted) {
    scripted_dialog_runner runner([](const element_view&) { return 1; });
    const auto is_accepted = [&] { return show_unique_name_dialog(u"C:\\a.shp", proposed).accepted; };
    EXPECT_FALSE(is_accepted());
    std::optional<offered> offer(std::in_place);
    EXPECT_FALSE(is_accepted());
    const dialog_connections connections(runner);
    EXPECT_TRUE(is_accepted());
    offer.reset();
    EXPECT_FALSE(is_accepted());
}

} // namespace
} // namespace vs::project_resave
