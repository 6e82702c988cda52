#include <gtest/gtest.h>

#include <algorithm>

#include "framework/border/ref.h"
#include "framework/bundle_entry.h"
#include "framework/factories.h"
#include "framework/resources/resource_bitmap.h"
#include "framework/resources/strings.h"
#include "reference_host/model/counted.h"
#include "reference_host/shell/front_end.h"
#include "reference_host/shell/service_registry.h"

namespace vs::project_resave {
namespace {

class strings : public testing::Test {
protected:
    ~strings() override { vestra::shell::settings() = {}; }
};

constexpr uint32_t russian = 0, english = 50000;

TEST_F(strings, each_text_comes_in_the_hosts_language_and_falls_back_to_the_base) {
    const struct {
        uint32_t language;
        int32_t id;
        wide_string expected;
    } rows[] = {
        {english, 502, u"Project saved"},
        {english, 212, u"Скважины"}, // no English row
        {english, 50122, u""},       // the offset is not added twice
        {english, -101, u"Run"},
        {russian, -102, u"Закрыть"},
        {english, 10001, u"OK"},
        {russian, 40001, u"own zero"}, // these two of windows/own_rows.rc and posix/own_rows.cpp
        {russian, 40002, u"without"},
    };
    for (const auto& row : rows) {
        vestra::shell::settings().language_offset = row.language;
        EXPECT_EQ(row.expected, load_string(row.id)) << row.id;
    }
    wide_string kept = u"kept";
    load_string(9999, kept);
    EXPECT_EQ(u"kept", kept);
}

class test_localizer final : public referent<localizer_impl> {
public:
    void text(const void*, uint32_t id, string_visitor visitor) override {
        if (id == 502) tell(visitor, u"from the localizer");
    }
    void bitmap(const void*, uint32_t, masked_bitmap_visitor) override {}
};

class test_localizer_service final : public referent<localizer_service_impl> {
public:
    explicit test_localizer_service(const bundle_context&) {}
    void connect(localizer_client found) override {
        ++connected;
        call<&localizer_client_impl::set_localizer>(found, current.get());
    }
    void disconnect(localizer_client) override { --connected; }
    ref<localizer_impl> current{pointer_to<localizer_impl>(*new test_localizer)};
    static inline int connected = 0; // clients, of all services
};
using localizer_holder = ref_service_holder<test_localizer_service, localizer_service_impl>;

TEST_F(strings, a_localizer_has_the_last_word_until_it_is_gone) {
    vestra::shell::settings().language_offset = english;
    const size_t living = vestra::living_objects();
    {
        local_factory_impl client;
        service_factory<test_localizer_service> first(u"vestra/localizer",
                                                      std::make_unique<localizer_holder>());
        service_factory<test_localizer_service> second(u"vestra/localizer",
                                                       std::make_unique<localizer_holder>());
        vestra::shell::service_registry registry;
        registry.add(u"", pointer_to<service_factory_impl>(client), {});
        registry.start_clients();
        EXPECT_EQ(u"Project saved", load_string(502));
        registry.add(u"vestra/localizer", pointer_to<service_factory_impl>(first), {});
        registry.add(u"vestra/localizer", pointer_to<service_factory_impl>(second), {});
        look_for_localizer();
        EXPECT_EQ(1, test_localizer_service::connected) << "to one of both at a time";
        EXPECT_EQ(u"from the localizer", load_string(502));
        EXPECT_EQ(u"", load_string(501)); // its silence is final
        EXPECT_EQ(u"Run", load_string(-101));
    }
    EXPECT_EQ(u"Project saved", load_string(502));
    EXPECT_EQ(living, vestra::living_objects());
}

TEST(bitmaps, every_picture_is_there) {
    for (const uint32_t id : {130u, 1000u, 1001u, 1002u, 1003u, 1004u, 1005u, 1006u, 1007u})
        EXPECT_EQ(16u, load_bitmap({platform::own_module(), id}).height()) << id;
}

// The rows themselves, as data: what the windows, the logs and the written folders rely on.
struct text_row {
    uint32_t id;
    wide_view base;
    std::optional<wide_view> english;
};

#define VS_TEXT(id, name, base, english) {id, base, wide_view{english}},
#define VS_TEXT_BASE_ONLY(id, name, base) {id, base, std::nullopt},

const std::vector<text_row> bundle_rows = {
#include "framework/resources/texts/bundle_texts.inc"
};

const std::vector<text_row> toolkit_rows = {
#include "framework/resources/texts/toolkit_texts.inc"
};

const std::vector<text_row> host_rows = {
#include "reference_host/shell/host_texts.inc"
};

#undef VS_TEXT
#undef VS_TEXT_BASE_ONLY

TEST(texts_data, no_message_is_empty_told_twice_or_loses_a_letter_on_its_way_into_the_library) {
    const std::pair<platform::module_handle, const std::vector<text_row>*> tables[] = {
        {platform::own_module(), &bundle_rows},
        {platform::own_module(), &toolkit_rows},
        {platform::host_basic_module(), &host_rows}};
    for (const auto& [module, rows] : tables) {
        EXPECT_TRUE(std::ranges::is_sorted(*rows, std::ranges::less_equal(), &text_row::id));
        for (const auto& [id, base, translated] : *rows) {
            wide_view found, other;
            EXPECT_TRUE(platform::find_text_row(module, id, found) && found == base && !base.empty()) << id;
            EXPECT_EQ(translated.has_value(), platform::find_text_row(module, id + 50000, other)) << id;
            EXPECT_EQ(translated.value_or(u""), other) << id;
        }
    }
}

} // namespace
} // namespace vs::project_resave
