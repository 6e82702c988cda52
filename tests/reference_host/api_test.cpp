// What every C function of the host promises alike; what each of them does shows in whole runs.
#include <limits>
#include <utility>

#include <gtest/gtest.h>

#include "framework/border/string_adapter.h"
#include "host/vsk_attr_data.h"
#include "host/vsk_basic.h"
#include "host/vsk_msgs.h"
#include "host/vsk_prj.h"
#include "host/vsk_xml_save_prj.h"
#include "reference_host/api/handles.h"
#include "reference_host/shell/front_end.h"
#include "tests/support/scripted_front_end.h"

namespace {

using namespace vs::project_resave;
using vestra::api::to_model;

class host_api : public testing::Test {
protected:
    ~host_api() override {
        vs_prj_destroy(handle);
        EXPECT_EQ(vestra::living_objects(), 0U);
        vestra::shell::settings() = {};
    }

    vs_prj* handle = vs_prj_create();
    vestra::project& project = *to_model(handle);
};

TEST_F(host_api, an_index_beyond_the_end_and_a_null_handle_are_harmless) {
    for (const char16_t* caption : {u"0", u"1", u"2"}) project.tables.make().caption = caption;
    vs_attrs_data* const tables = vs_prj_get_attrs_data_ptr(handle);
    for (const uint32_t index : {3U, std::numeric_limits<uint32_t>::max(), 1U})
        vs_attrs_data_del(tables, index);
    ASSERT_EQ(vs_attrs_data_get_size(tables), 2U);
    EXPECT_EQ(host_string(vs_attr_data_get_wcaption, vs_attrs_data_get(tables, 1)), u"2");
    EXPECT_EQ(vs_attrs_data_get(tables, 2), nullptr);

    vs_attrs_data_del(nullptr, 0);
    EXPECT_EQ(host_string(vs_attr_data_get_wcaption, static_cast<vs_attr_data*>(nullptr)), u"");
    EXPECT_EQ(vs_xml_data_load_prj_w(nullptr, u"C:\\a._vp", handle), 0U);
    vestra::shell::settings().open_project = &project;
    vs_prj_destroy(std::exchange(handle, nullptr));
    EXPECT_EQ(vs_prj_get_instance(), nullptr) << "the open one has gone";
}

// Zero would be taken for yes.
TEST_F(host_api, a_question_that_breaks_off_is_answered_with_cancel) {
    struct broken : vestra::shell::scripted_front_end {
        vestra::shell::answer yes_no_cancel(vestra::wide_view) override { throw std::bad_alloc(); }
    } front;
    const vestra::shell::front_end_override in_force(front);
    EXPECT_EQ(vs_yesnocancel_wmessage(u"Erase?"), int32_t(vestra::shell::answer::cancel));
}

TEST_F(host_api, a_uuid_is_read_in_its_usual_forms_and_never_from_a_path) {
    vs_uuid* const id = vs_uuid_create();
    EXPECT_EQ(vs_uuid_from_string(id, u"{0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9}") & 0xFF, 1U);
    for (const char16_t* text :
         {u"C:\\data\\maps\\a1b2-c3d4-e5f6-71829._sn", u"", u"*", u"0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f",
          u"0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8fg", u"{0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9"})
        EXPECT_EQ(vs_uuid_from_string(id, text) & 0xFF, 0U);
    EXPECT_EQ(host_string(vs_uuid_to_string, id), u"0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9");
    vs_uuid_destroy(id);
}

} // namespace
