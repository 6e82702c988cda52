#include <gtest/gtest.h>

#include <array>

#include "framework/factories.h"
#include "framework/layer_type_loader.h"
#include "framework/local_factory.h"
#include "framework/ref.h"
#include "framework/resource_bitmap.h"
#include "framework/strings.h"
#include "host/interfaces/layer_type_service.h"
#include "host/vsk_basic.h"
#include "reference_host/model/counted.h"
#include "reference_host/shell/service_registry.h"
#include "reference_host/shell/settings.h"
#include "tests/support/scripted_front_end.h"

namespace vs::project_resave {
namespace {

class in_language {
public:
    explicit in_language(uint32_t offset) : before(vestra::shell::settings()) {
        vestra::shell::settings().language_offset = offset;
    }
    ~in_language() { vestra::shell::settings() = before; }

private:
    vestra::shell::host_settings before;
};

constexpr uint32_t russian = 0, english = 50000;

TEST(strings, each_text_comes_in_the_hosts_language_and_falls_back_to_the_base) {
    const struct {
        uint32_t language;
        int32_t id;
        wide_string expected;
    } rows[] = {
        {english, 502, u"Project saved"},
        {english, 122, u"Создавать лог-файл для пересохранения проекта"}, // no English row
        {russian, 122, u"Создавать лог-файл для пересохранения проекта"},
        {english, 50122, u""}, // the offset is not added twice
        {english, 9999, u""},
        {english, -101, u"Run"},
        {russian, -102, u"Закрыть"},
        {english, 0, u""},
        {english, 10001, u"OK"},
        {english, 406, u"legend plus\\"},
    };
    for (const auto& row : rows) {
        const in_language language(row.language);
        EXPECT_EQ(row.expected, load_string(row.id)) << row.id;
    }
    wide_string kept = u"kept";
    load_string(9999, kept);
    EXPECT_EQ(u"kept", kept);
}

// The rows are in posix/own_rows.cpp and in the resources of this program.
TEST(strings, a_row_that_ends_in_its_own_zero_reads_like_any_other) {
    const in_language language(russian);
    EXPECT_EQ(u"own zero", load_string(40001));
    EXPECT_EQ(u"without", load_string(40002));
}

TEST(strings, boxes_show_the_text_of_their_number) {
    const in_language language(english);
    vestra::shell::scripted_front_end script;
    script.answers = {vestra::shell::answer::yes};
    const vestra::shell::front_end_override in_force(script);
    show_error(515);
    show_message(502);
    EXPECT_TRUE(ask_yes_no(528));
    EXPECT_FALSE(ask_yes_no(528));
    ASSERT_EQ(4u, script.events.size());
    EXPECT_EQ(u"Error select", script.events[0].text);
    EXPECT_EQ(vestra::shell::scripted_front_end::kind::error, script.events[0].what);
    EXPECT_EQ(u"Project saved", script.events[1].text);
}

class test_localizer final : public referent<localizer_impl> {
public:
    void text(const void*, uint32_t id, string_visitor visitor) override {
        if (id == 502) tell(visitor, u"from the localizer");
    }
    void bitmap(const void*, uint32_t, masked_bitmap_visitor visitor) override {
        resource::masked_bitmap own = pixel;
        call<&masked_bitmap_visitor_impl::visit>(visitor, pointer_to<masked_bitmap_impl>(own));
    }
    resource::masked_bitmap pixel{platform::image{1, 2, {1, 2, 3, 4, 5, 6}, {255, 0}}};
};

class test_localizer_service final : public referent<localizer_service_impl> {
public:
    explicit test_localizer_service(const bundle_context&) {}
    void connect(localizer_client found) override {
        client = found;
        call<&localizer_client_impl::set_localizer>(client, current.get());
    }
    void disconnect(localizer_client) override { client = {}; }
    ref<localizer_impl> current{pointer_to<localizer_impl>(*new test_localizer)};
    localizer_client client;
};

class reading_visitor final
    : public polymorphic<bytes_visitor_impl, polymorphic<thrice_interleaved_bytes_visitor_impl>> {
public:
    void visit(const uint8_t* row, int32_t stride, uint32_t width, uint32_t height) override {
        ++calls;
        for (uint32_t y = 0; y < height; ++y, row += stride) firsts.push_back(*row);
        EXPECT_EQ(1u, width);
    }
    int calls = 0;
    std::vector<int> firsts;
};

TEST(strings, a_localizer_has_the_last_word_until_it_is_gone) {
    const in_language language(english);
    const size_t living = vestra::living_objects();
    {
        local_factory_impl client;
        service_factory<test_localizer_service> offered(
            u"vestra/localizer",
            std::make_unique<ref_service_holder<test_localizer_service, localizer_service_impl>>());
        vestra::shell::service_registry registry;
        registry.add(u"vestra/localizer", pointer_to<service_factory_impl>(offered), {});
        registry.add(u"", pointer_to<service_factory_impl>(client), {});
        registry.start_clients();
        EXPECT_EQ(u"from the localizer", load_string(502));
        EXPECT_EQ(u"", load_string(501)); // its silence is final
        EXPECT_EQ(u"Run", load_string(-101));
        resource::masked_bitmap picture = load_bitmap({platform::own_module(), 1000});
        EXPECT_EQ(2u, picture.height());
        reading_visitor colours;
        picture.visit_pixels(pointer_to<thrice_interleaved_bytes_visitor_impl>(colours));
        EXPECT_EQ((std::vector<int>{1, 4}), colours.firsts) << "rows turned on their way through the border";
    }
    EXPECT_EQ(u"Project saved", load_string(502));
    EXPECT_EQ(living, vestra::living_objects());
}

TEST(bitmaps, every_picture_is_there_and_its_background_turns_transparent) {
    for (const uint32_t id : {130u, 1000u, 1001u, 1002u, 1003u, 1004u, 1005u, 1006u, 1007u}) {
        resource::masked_bitmap whole = load_bitmap({platform::own_module(), id});
        EXPECT_EQ(16u, whole.width()) << id;
        EXPECT_EQ(16u, whole.height()) << id;
        platform::image plain;
        ASSERT_TRUE(platform::load_image(platform::own_module(), id, plain));
        EXPECT_EQ(0u, static_cast<size_t>(std::count(plain.mask.begin(), plain.mask.end(), 0))) << id;
    }
    resource::masked_bitmap masked = load_bitmap_with_mask({platform::own_module(), 1001}, {255, 0, 255});
    struct mask_reader final : bytes_visitor_impl {
        void visit(const uint8_t* row, int32_t stride, uint32_t width, uint32_t height) override {
            EXPECT_EQ(-static_cast<int32_t>(width), stride);
            const uint8_t* first =
                row + static_cast<ptrdiff_t>(stride) * (static_cast<ptrdiff_t>(height) - 1);
            for (uint32_t pixel = 0; pixel < width * height; ++pixel) ++(first[pixel] ? opaque : transparent);
        }
        size_t opaque = 0, transparent = 0;
    } reader;
    masked.visit_mask(pointer_to<bytes_visitor_impl>(reader));
    EXPECT_EQ(256u, reader.opaque + reader.transparent);
    EXPECT_GT(reader.opaque, 0u);
    EXPECT_GT(reader.transparent, 0u);
    resource::masked_bitmap missing = load_icon({platform::own_module(), 4711});
    EXPECT_EQ(0u, missing.width());
    missing.visit_mask(pointer_to<bytes_visitor_impl>(reader));
    EXPECT_EQ(256u, reader.opaque + reader.transparent) << "an empty picture called its visitor";
}

class test_layer_types final : public referent<layer_type_service_impl> {
public:
    explicit test_layer_types(const bundle_context&) {}
    uint32_t type_count() override { return 3; }
    const char* type_name(uint32_t index) override {
        static constexpr std::array names{"shp_pnt_lr2d", "rtr_lr2d", "shp_pnt_lr2d"};
        return names[index];
    }
    vs_dib* picture(uint32_t index) override {
        vs_dib* dib = vs_dib_create(index + 1, 1);
        return dib;
    }
};

TEST(bitmaps, a_layer_type_keeps_its_first_picture_and_a_service_seen_twice_counts_once) {
    const size_t living = vestra::living_objects();
    {
        service_factory<test_layer_types> offered(
            u"vestra/scene/2d",
            std::make_unique<ref_service_holder<test_layer_types, layer_type_service_impl>>());
        vestra::shell::service_registry registry;
        registry.add(u"vestra/scene/2d", pointer_to<service_factory_impl>(offered), {});
        auto types = layer_type_loader::load({u"vestra/scene/2d", u"vestra/scene/2d", u"vestra/scene/3d"});
        ASSERT_EQ(2u, types.size());
        EXPECT_EQ("shp_pnt_lr2d", types[0].layer_type);
        EXPECT_EQ(1u, types[0].bitmap.width());
        EXPECT_EQ(-1, layer_type_index(types, nullptr));
    }
    EXPECT_EQ(living, vestra::living_objects());
}

} // namespace
} // namespace vs::project_resave
