// What all C functions of the host have in common, and its front end on a terminal.
#include <limits>

#include <gtest/gtest.h>

#include "framework/border/string_adapter.h"
#include "host/vsk_attr_data.h"
#include "host/vsk_basic.h"
#include "host/vsk_msgs.h"
#include "host/vsk_prj.h"
#include "host/vsk_xml_save_prj.h"
#include "reference_host/api/handles.h"
#include "reference_host/shell/terminal_front_end.h"
#include "tests/support/scripted_front_end.h"

namespace {

using namespace vs::project_resave;
using vestra::api::to_model;
using vestra::shell::answer;
using vestra::shell::terminal_front_end;

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
        answer yes_no_cancel(vestra::wide_view) override { throw std::bad_alloc(); }
    } front;
    const vestra::shell::front_end_override in_force(front);
    EXPECT_EQ(vs_yesnocancel_wmessage(u"Erase?"), int32_t(answer::cancel));
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

struct fake_terminal final : platform::terminal {
    bool is_screen = true;
    bool was_interrupted = false;
    std::deque<std::string> typed; // "^C" is Ctrl-C; the end of the list is the end of the input
    std::string written;

    bool shows() override { return is_screen; }
    bool asks() override { return is_screen; }
    unsigned width() override { return 40; }
    void write(std::string_view text) override { written += text; }
    platform::line_result read_line(std::string& line) override {
        if (typed.empty()) return platform::line_result::ended;
        line = typed.front();
        typed.pop_front();
        return line == "^C" ? platform::line_result::interrupted : platform::line_result::read;
    }
    bool interrupted() override { return was_interrupted; }
    void forget_interrupt() override { was_interrupted = false; }
};

TEST(terminal_front_end, progress_gives_way_to_messages_and_output_is_harmless) {
    fake_terminal terminal;
    terminal_front_end front(terminal, false);
    front.progress_opened(true);
    front.progress_caption(u"Layers of\r\na long name");
    front.error(u"lost\x1b[2J");
    EXPECT_EQ("\r[....................]   0 % Layers of \x1b[K\r\x1b[Klost\xEF\xBF\xBD[2J\n",
              terminal.written);
}

TEST(terminal_front_end, bytes_are_shown_with_the_time_that_is_left_once_it_is_known) {
    const struct {
        uint32_t language;
        int seconds_for_a_tenth;
        const char* lines;
    } rows[] = {
        {50000, 2,
         "  0 % Tiff  0.0 of 1.9 GB\n 10 % Tiff  0.2 of 1.9 GB\n 20 % Tiff  0.4 of 1.9 GB  about 20 s left\n"
         " 30 % Tiff  0.6 of 1.9 GB  about 15 s left\n"},
        {50000, 900,
         "  0 % Tiff  0.0 of 1.9 GB\n 10 % Tiff  0.2 of 1.9 GB  about 2 h 15 min left\n"
         " 20 % Tiff  0.4 of 1.9 GB  about 2 h 0 min left\n 30 % Tiff  0.6 of 1.9 GB  about 1 h 45 min "
         "left\n"},
        {0, 40,
         "  0 % Tiff  0,0 из 1,9 ГБ\n 10 % Tiff  0,2 из 1,9 ГБ  осталось около 6 мин\n"
         " 20 % Tiff  0,4 из 1,9 ГБ  осталось около 5 мин\n 30 % Tiff  0,6 из 1,9 ГБ  осталось около 5 "
         "мин\n"},
    };
    for (const auto& row : rows) {
        vestra::shell::settings().language_offset = row.language;
        fake_terminal terminal;
        terminal.is_screen = false;
        std::chrono::milliseconds now{};
        terminal_front_end front(terminal, false, [&] { return now; });
        front.expect_bytes(2'000'000'000);
        front.progress_opened(true);
        front.progress_caption(u"Tiff");
        for (int percent = 1; percent <= 30; ++percent) {
            now += std::chrono::milliseconds(row.seconds_for_a_tenth * 100);
            front.bytes_moved(20'000'000);
        }
        EXPECT_EQ(row.lines, terminal.written);
    }
    vestra::shell::settings() = {};
}

TEST(terminal_front_end, questions_go_to_the_person_and_without_one_mean_no) {
    const struct {
        const char* what;
        wide_view question;
        std::deque<std::string> typed;
        answer with_cancel;
        bool is_screen;
        bool yes_no;
    } rows[] = {
        {"in the base language", u"Stop?", {"Да", "да"}, answer::yes, true, true},
        {"asked until it is understood", u"Stop?", {"perhaps", "", "no", "n"}, answer::no, true, false},
        {"cancel is no answer to yes or no", u"Stop?", {"c", "c", "y"}, answer::cancel, true, true},
        {"a second Ctrl-C stops, and keeps", u"Stop?", {"^C", "^C"}, answer::no, true, false},
        {"the end of the input stops, and keeps", u"Stop?", {}, answer::no, true, false},
        {"nobody there", u"Stop?", {"y", "y"}, answer::no, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        fake_terminal terminal;
        terminal.is_screen = row.is_screen;
        terminal.typed = row.typed;
        terminal_front_end front(terminal, true);
        EXPECT_EQ(row.with_cancel, front.yes_no_cancel(row.question));
        EXPECT_EQ(row.yes_no, front.yes_no(row.question));
    }
}

TEST(terminal_front_end, ctrl_c_is_the_stop_button_of_the_window_that_is_open) {
    fake_terminal terminal;
    terminal_front_end front(terminal, false);
    for (const bool cancelled : {false, true}) {
        front.progress_opened(true);
        EXPECT_FALSE(front.stop_requested()) << "each window begins anew";
        terminal.was_interrupted = true;
        EXPECT_TRUE(front.stop_requested());
        if (cancelled) front.stop_reset();
        EXPECT_EQ(!cancelled, front.stop_requested());
        front.progress_closed();
    }
}

} // namespace
