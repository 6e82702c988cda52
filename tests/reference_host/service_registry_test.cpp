#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <string>

#include "framework/bundle_entry.h"
#include "framework/strings.h"
#include "host/interfaces/layer_type_service.h"
#include "host/interfaces/localizer.h"
#include "host/interfaces/service_visitor.h"
#include "platform/text.h"
#include "reference_host/shell/bundle_loader.h"
#include "tests/support/temporary_folder.h"

namespace vestra::shell {
namespace {

using namespace vs::project_resave;

std::vector<std::string> ended; // names of the services that ended, in order

class layer_types final : public referent<layer_type_service_impl> {
public:
    explicit layer_types(std::string own_name) : name(std::move(own_name)) {}
    ~layer_types() override { ended.push_back(name); }
    uint32_t type_count() override { return 0; }
    const char* type_name(uint32_t) override { return name.c_str(); }
    vs_dib* picture(uint32_t) override { return nullptr; }

private:
    std::string name;
};

class localizers final : public referent<localizer_service_impl> {
public:
    void connect(localizer_client) override { ++clients; }
    void disconnect(localizer_client) override { --clients; }
    int clients = 0;
};

// Answers what `make` makes, with every call of it counted.
class counting_factory final : public service_factory_impl {
public:
    using maker = std::function<identity_pointer()>;
    explicit counting_factory(maker function) : make(std::move(function)) {}
    identity_pointer create(bundle_context given) override {
        ++calls;
        context = given;
        return make();
    }
    service_factory_pointer pointer() { return pointer_to<service_factory_impl>(*this); }

    maker make;
    int calls = 0;
    bundle_context context;
};

counting_factory::maker layer_types_named(const char* name) {
    return [=] { return identity_of(static_cast<layer_type_service_impl&>(*new layer_types(name))); };
}

class found_names final
    : public polymorphic<layer_type_service_visitor_impl, polymorphic<service_visitor_impl>> {
public:
    void visit(layer_type_service service) override {
        all += call<&layer_type_service_impl::type_name>(service, 0u);
    }
    void query(const char* asked, const void** table, void** instance) override {
        polymorphic::query(asked, table, instance);
    }
    void identity(interface_pointer& out) override { polymorphic::identity(out); }
    std::string all;
};

std::string found_under(wide_view id) {
    found_names visitor;
    visit_services(id, identity_of(static_cast<layer_type_service_visitor_impl&>(visitor)));
    return visitor.all;
}

struct context_of_a_bundle final : bundle_context_impl {
    void register_factory(const char16_t*, service_factory_pointer) override {}
    bundle_context pointer() { return pointer_to<bundle_context_impl>(*this); }
};

TEST(service_registry, services_are_found_by_exact_id_or_without_one_and_by_kind_in_order_of_registration) {
    EXPECT_EQ("", found_under(u"vestra/scene/2d")) << "no registry";
    counting_factory a(layer_types_named("a")), b(layer_types_named("b")), c(layer_types_named("c"));
    counting_factory other_kind(
        [] { return identity_of(static_cast<localizer_service_impl&>(*new localizers)); });
    service_registry registry;
    registry.add(u"vestra/scene/3d", a.pointer(), {});
    registry.add(u"", other_kind.pointer(), {});
    registry.add(u"", b.pointer(), {});
    registry.add(u"vestra/scene/2d", c.pointer(), {});
    EXPECT_EQ(0, a.calls + b.calls + c.calls) << "built on demand only";

    EXPECT_EQ("bc", found_under(u"vestra/scene/2d"));
    EXPECT_EQ("ab", found_under(u"vestra/scene/3d"));
    EXPECT_EQ("ab", found_under(u"vestra/scene/3d"));
    EXPECT_EQ("b", found_under(u"VESTRA/scene/3d"));
    EXPECT_EQ("b", found_under(u""));
    for (const counting_factory* factory : {&a, &b, &c}) EXPECT_EQ(1, factory->calls);
}

TEST(service_registry, a_client_gets_its_context_once_and_may_look_for_services_meanwhile) {
    context_of_a_bundle context;
    counting_factory service(layer_types_named("s"));
    std::string found;
    counting_factory client([&] {
        found += found_under(u"vestra/scene/2d");
        return identity_pointer();
    });
    service_registry registry;
    registry.add(u"", client.pointer(), context.pointer());
    registry.add(u"vestra/scene/2d", service.pointer(), {});
    registry.start_clients();
    registry.start_clients();
    EXPECT_EQ("s", found_under(u"vestra/scene/2d"));
    EXPECT_EQ("s", found);
    EXPECT_EQ(1, client.calls);
    EXPECT_EQ(context.pointer(), client.context);
}

TEST(service_registry, services_go_in_reverse_and_those_of_one_bundle_with_it) {
    ended.clear();
    context_of_a_bundle first, second;
    counting_factory a(layer_types_named("a")), b(layer_types_named("b")), c(layer_types_named("c"));
    service_registry registry;
    registry.add(u"x", a.pointer(), first.pointer());
    registry.add(u"x", b.pointer(), second.pointer());
    registry.add(u"x", c.pointer(), first.pointer());
    EXPECT_EQ("abc", found_under(u"x"));

    registry.remove(first.pointer());
    EXPECT_EQ((std::vector<std::string>{"c", "a"}), ended);
    EXPECT_EQ("b", found_under(u"x"));
    registry.release_services();
    EXPECT_EQ("b", ended.back());
    EXPECT_EQ("", found_under(u"x")) << "asked at most once";
}

TEST(bundle_loader, the_bundle_linked_in_meets_the_localizer_of_the_host) {
    localizers* localizer = nullptr;
    counting_factory factory([&] {
        localizer = new localizers;
        return identity_of(static_cast<localizer_service_impl&>(*localizer));
    });
    service_registry registry;
    registry.add(u"vestra/localizer", factory.pointer(), {});
    bundle_loader loader(registry);
    ASSERT_FALSE(loader.start(&vs_bundle_interface_to_custom_pointer));
    EXPECT_EQ(nullptr, localizer);
    registry.start_clients();
    ASSERT_NE(nullptr, localizer);
    EXPECT_EQ(1, localizer->clients);
}

TEST(bundle_loader, what_is_no_bundle_is_refused_with_path_and_reason) {
    const temporary_folder folder;
    std::vector<wide_string> paths{folder.path(u"absent.so"), folder.write(u"text.so", "no library")};
    std::ifstream maps("/proc/self/maps"); // a library that is no bundle: the first that this program uses
    for (std::string line; std::getline(maps, line);)
        if (line.ends_with(".so.6")) {
            paths.push_back(platform::drive_path(line.substr(line.find('/'))));
            break;
        }
    service_registry registry;
    bundle_loader loader(registry);
    for (const wide_string& path : paths) {
        const auto error = loader.load(path);
        ASSERT_TRUE(error) << platform::to_utf8(path);
        EXPECT_EQ(path, error->path);
        EXPECT_FALSE(error->reason.empty());
    }
    const auto gives_nothing = [](vs_interface_pointer* out, void*) { *out = {}; };
    EXPECT_TRUE(loader.start(gives_nothing));
}

} // namespace
} // namespace vestra::shell
