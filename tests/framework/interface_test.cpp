#include <gtest/gtest.h>

#include <stdexcept>

#include "framework/border/ref.h"
#include "framework/border/visitors.h"
#include "framework/bundle_entry.h"
#include "framework/factories.h"
#include "host/interfaces/localizer.h"

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

TEST(interface, a_call_reaches_the_object_and_a_null_pair_or_an_exception_gives_zero) {
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

TEST(interface, a_table_has_identity_then_base_then_the_operations_in_order) {
    desk_lamp object;
    using brightness = int (*)(const void*, void*, int);
    const lamp pair = lamp_of(object);
    EXPECT_EQ(20, static_cast<const brightness*>(pair.table)[2](pair.table, pair.instance, 2));
    const auto rooted = cast_to<switch_impl>(pair);
    using on = bool (*)(const void*, void*);
    EXPECT_TRUE(static_cast<const on*>(rooted.table)[1](rooted.table, rooted.instance));
}

TEST(interface, one_object_answers_each_of_its_names_exactly_and_has_one_identity) {
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

TEST(ref, the_last_strong_one_ends_the_object_once_and_the_weak_ones_learn_of_it) {
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

class recording_context final : public bundle_context_impl {
public:
    void register_factory(const char16_t* id, service_factory_pointer factory) override {
        ids.emplace_back(id);
        last = factory;
    }
    std::vector<wide_string> ids;
    service_factory_pointer last;
};

bundle entry_of(void* instance) {
    bundle pair;
    vs_bundle_interface_to_custom_pointer(&pair, instance);
    return pair;
}

class living_service final : public referent<localizer_service_impl> {
public:
    explicit living_service(const bundle_context&) { ++living; }
    ~living_service() override { --living; }
    void connect(localizer_client) override {}
    void disconnect(localizer_client) override {}
    static inline int living = 0;
};

// The bundle's own six services stand before what a test adds.
TEST(bundle_entry, every_factory_is_announced_in_order_and_its_service_is_built_once_and_ends_with_it) {
    const size_t before = factory_registry().size();
    recording_context context;
    {
        service_factory<living_service> added(
            u"vestra/test", std::make_unique<ref_service_holder<living_service, localizer_service_impl>>());
        call<&bundle_impl::start>(entry_of(&context), pointer_to<bundle_context_impl>(context));
        EXPECT_EQ((std::vector<wide_string>{u"", u"vestra/app/project_resave_app", u"", u"", u"", u"",
                                            u"vestra/test"}),
                  context.ids);
        EXPECT_EQ(0, living_service::living);
        const auto create = [&] {
            return call<&service_factory_impl::create>(context.last, bundle_context());
        };
        EXPECT_EQ(create(), create());
        EXPECT_EQ(1, living_service::living);
    }
    EXPECT_EQ(0, living_service::living);
    EXPECT_EQ(before, factory_registry().size());
}

} // namespace
} // namespace vs::project_resave
