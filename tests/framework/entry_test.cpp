#include <gtest/gtest.h>

#include "framework/bundle_entry.h"
#include "framework/factories.h"
#include "framework/ref.h"
#include "host/interfaces/localizer.h"

namespace vs::project_resave {
namespace {

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
