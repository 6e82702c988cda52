#include <gtest/gtest.h>

#include "framework/bundle_entry.h"
#include "framework/factories.h"
#include "framework/ref.h"

namespace vs::project_resave {
namespace {

class recording_context final : public bundle_context_impl {
public:
    void register_factory(const char16_t* id, service_factory_pointer factory) override {
        ids.emplace_back(id);
        factories.push_back(factory);
    }
    std::vector<wide_string> ids;
    std::vector<service_factory_pointer> factories;
};

bundle entry_of(void* instance) {
    bundle pair;
    vs_bundle_interface_to_custom_pointer(&pair, instance);
    return pair;
}

TEST(bundle_entry, the_host_gets_one_table_and_its_own_instance_back_and_no_name_is_answered) {
    int mine = 0, other = 0;
    EXPECT_EQ(&mine, entry_of(&mine).instance);
    EXPECT_EQ(entry_of(&mine).table, entry_of(&other).table);
    const identity_pointer identity = identity_of(static_cast<const interface_pointer&>(entry_of(&mine)));
    EXPECT_TRUE(identity);
    for (const char* name : {"vs_bundle_interface_1", "vs_identity_interface_0", ""})
        EXPECT_FALSE(query_name(identity, name));
    call<&bundle_impl::reserved_2>(entry_of(&mine));
    call<&bundle_impl::reserved_5>(entry_of(&mine));
}

class living_service_impl : public interface_of<living_service_impl> {
public:
    static constexpr const char* name = "vs_living_service_interface_1";
    virtual int answer() = 0;
    using operations = operation_list<&living_service_impl::answer>;
};

int living = 0;
class living_service final : public referent<living_service_impl> {
public:
    explicit living_service(const bundle_context&) { ++living; }
    ~living_service() override { --living; }
    int answer() override { return 42; }
};

// The bundle's own six services stand before what a test adds.
TEST(bundle_entry, every_factory_is_announced_in_order_and_its_service_is_built_once_and_ends_with_it) {
    const size_t before = factory_registry().size();
    recording_context context;
    {
        service_factory<living_service> added(
            u"vestra/test", std::make_unique<ref_service_holder<living_service, living_service_impl>>());
        call<&bundle_impl::start>(entry_of(&living), pointer_to<bundle_context_impl>(context));
        ASSERT_EQ(before + 1, context.ids.size());
        EXPECT_EQ(u"vestra/test", context.ids.back());
        EXPECT_EQ(0, living);
        const identity_pointer first =
            call<&service_factory_impl::create>(context.factories.back(), bundle_context{});
        const identity_pointer second =
            call<&service_factory_impl::create>(context.factories.back(), bundle_context{});
        EXPECT_EQ(first, second);
        EXPECT_EQ(1, living);
        EXPECT_EQ(42, call<&living_service_impl::answer>(cast_to<living_service_impl>(first)));
    }
    EXPECT_EQ(0, living);
    EXPECT_EQ(before, factory_registry().size());
}

TEST(bundle_entry, a_null_context_registers_nothing) {
    call<&bundle_impl::start>(entry_of(&living), bundle_context{});
}

} // namespace
} // namespace vs::project_resave
