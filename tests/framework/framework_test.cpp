// The interface between libraries, and the texts and pictures of this one.
#include <gtest/gtest.h>

#include <stdexcept>

#include "framework/border/ref.h"
#include "framework/bundle_entry.h"
#include "framework/factories.h"
#include "framework/local_factory.h"
#include "framework/resources/resource_bitmap.h"
#include "framework/resources/strings.h"
#include "reference_host/model/counted.h"
#include "reference_host/shell/front_end.h"
#include "reference_host/shell/service_registry.h"

namespace vs::project_resave {
namespace {

struct pair_of_numbers {
    uint64_t first, second;
};

class lamp_impl : public interface_of<lamp_impl> {
public:
    static constexpr const char* name = "vs_lamp_interface_5";
    virtual int brightness(int step) = 0;
    virtual uint64_t sum(pair_of_numbers numbers) = 0;
    virtual string_visitor same(string_visitor visitor) = 0;
    using operations = operation_list<&lamp_impl::brightness, &lamp_impl::sum, &lamp_impl::same>;
};
using lamp = interface_to<lamp_impl>;

class switch_impl : public interface_of<switch_impl> {
public:
    static constexpr const char* name = "vs_switch_interface_1";
    static constexpr bool rooted_in_identity = true;
    virtual bool on() { return true; }
    using operations = operation_list<&switch_impl::on>;
};

int living = 0;

class desk_lamp : public referent<polymorphic<lamp_impl, polymorphic<switch_impl>>> {
public:
    desk_lamp() { ++living; }
    ~desk_lamp() override { --living; }
    int brightness(int step) override {
        if (step < 0) throw std::runtime_error("broken");
        return 10 * step;
    }
    uint64_t sum(pair_of_numbers numbers) override { return numbers.first + numbers.second; }
    string_visitor same(string_visitor visitor) override { return visitor; }
};

lamp lamp_of(desk_lamp& object) { return pointer_to<lamp_impl>(object); }

TEST(interface, a_call_reaches_the_object_and_null_or_exception_gives_zero) {
    desk_lamp object;
    const lamp pair = lamp_of(object);
    EXPECT_EQ(30, call<&lamp_impl::brightness>(pair, 3));
    EXPECT_EQ(0, call<&lamp_impl::brightness>(pair, -1)) << "thrown inside";
    EXPECT_EQ(12u, call<&lamp_impl::sum>(pair, pair_of_numbers{5, 7}));
    const string_visitor whole{{pair.table, pair.instance}};
    EXPECT_EQ(whole, call<&lamp_impl::same>(pair, whole));
    for (const lamp& broken : {lamp{}, lamp{{pair.table, nullptr}}, lamp{{nullptr, pair.instance}}}) {
        EXPECT_EQ(0, call<&lamp_impl::brightness>(broken, 3));
        EXPECT_FALSE(call<&lamp_impl::same>(broken, whole));
        EXPECT_FALSE(cast_to<switch_impl>(broken));
    }
}

TEST(interface, one_object_answers_each_of_its_names_and_has_one_identity) {
    desk_lamp object;
    const lamp pair = lamp_of(object);
    const auto other = cast_to<switch_impl>(pair);
    EXPECT_TRUE(call<&switch_impl::on>(other));
    EXPECT_TRUE(cast_to<referent_impl>(other));
    EXPECT_EQ(pair, cast_to<lamp_impl>(other));
    const identity_pointer identity = identity_of(static_cast<const interface_pointer&>(pair));
    EXPECT_EQ(identity, identity_of(static_cast<const interface_pointer&>(other)));
    EXPECT_FALSE(query_name(identity, "vs_lamp_interface_4"));
}

TEST(ref, the_last_strong_one_ends_the_object_once_weak_ones_notice) {
    auto* object = new desk_lamp;
    const lamp pair = lamp_of(*object);
    weak_ref<lamp_impl> weak(pair);
    {
        ref<lamp_impl> strong(pair);
        std::vector<ref<lamp_impl>> grown;
        for (int i = 0; i < 20; ++i) grown.push_back(strong);
        const ref<lamp_impl>& same = strong;
        strong = same;
        strong.reset();
        EXPECT_EQ(1, living);
        EXPECT_TRUE(weak);
    }
    EXPECT_EQ(0, living);
    EXPECT_FALSE(weak);
    weak.assign(lamp_of(*new desk_lamp));
    weak.reset();
    EXPECT_EQ(0, living) << "nobody had kept it";
}

class strings : public testing::Test {
protected:
    ~strings() override { vestra::shell::settings() = {}; }
};

constexpr uint32_t russian = 0, english = 50000;

TEST_F(strings, each_text_is_in_the_host_language_or_else_in_the_base) {
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
    // One pixel wide, the upper one transparent.
    void bitmap(const void*, uint32_t, masked_bitmap_visitor visitor) override {
        resource::masked_bitmap picture({1, 2, {1, 1, 1, 2, 2, 2}, {0, 255}});
        call<&masked_bitmap_visitor_impl::visit>(visitor, pointer_to<masked_bitmap_impl>(picture));
    }
};

// The first byte of each row, in the order in which they are passed.
template <class Visitor>
struct first_bytes final : Visitor {
    void visit(const uint8_t* row, int32_t stride, uint32_t, uint32_t height) override {
        for (uint32_t y = 0; y < height; ++y) rows.push_back(*(row + static_cast<ptrdiff_t>(y) * stride));
    }
    std::vector<int> rows;
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
    const size_t before = vestra::living_objects();
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
        resource::masked_bitmap picture = load_bitmap({platform::own_module(), 1});
        first_bytes<thrice_interleaved_bytes_visitor_impl> colours;
        first_bytes<bytes_visitor_impl> mask;
        picture.visit_pixels(pointer_to<thrice_interleaved_bytes_visitor_impl>(colours));
        picture.visit_mask(pointer_to<bytes_visitor_impl>(mask));
        EXPECT_EQ((std::vector<int>{1, 2, 0, 255}),
                  (std::vector<int>{colours.rows[0], colours.rows[1], mask.rows[0], mask.rows[1]}));
        EXPECT_EQ(u"",
                  load_string(501)); // final, although empty: the localizer is not replaced by the resources
        EXPECT_EQ(u"Run", load_string(-101));
    }
    EXPECT_EQ(u"Project saved", load_string(502));
    EXPECT_EQ(before, vestra::living_objects());
}

TEST(bitmaps, every_picture_is_there) {
    for (const uint32_t id : {130u, 1000u, 1001u, 1002u, 1003u, 1004u, 1005u, 1006u, 1007u})
        EXPECT_EQ(16u, load_bitmap({platform::own_module(), id}).height()) << id;
}

} // namespace
} // namespace vs::project_resave
