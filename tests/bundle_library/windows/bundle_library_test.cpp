// The bundle and the host as libraries of the system, each found by its name.
#include <windows.h>

#include <gtest/gtest.h>

#include "framework/ref.h"
#include "framework/visitors.h"
#include "host/interfaces/service_visitor.h"
#include "host/vsk_prj.h"
#include "host/vsk_xml_save_prj.h"
#include "platform/library.h"
#include "platform/volumes.h"
#include "reference_host/model/counted.h"
#include "reference_host/shell/bundle_loader.h"
#include "reference_host/shell/settings.h"
#include "services/resave_service.h"

namespace vs::project_resave {
namespace {

class found_service final
    : public polymorphic<resave_service_visitor_impl, polymorphic<service_visitor_impl>> {
public:
    void visit(resave_service service) override { found.assign(service); }
    ref<resave_service_impl> found;
};

const wide_string bundle_path = platform::library_beside_program(u"vsk_project_resave_bdl");

template <auto Operation, class... Arguments>
wide_string told(const resave_service& service, Arguments... arguments) {
    wide_string text = u"nothing";
    stdwstring_visitor visitor(text);
    call<Operation>(service, arguments..., visitor);
    return text;
}

TEST(bundle_library, the_host_loads_it_uses_its_service_in_its_language_and_lets_it_go) {
    vs_prj* const project = vs_prj_create();
    vs_xml_save_prj* const reader = vs_xml_save_prj_create();
    const wide_string sample = platform::drive_path(VS_SOURCE_DIR "/samples/area/c/prj/area._vp");
    ASSERT_EQ(1U, vs_xml_data_load_prj_w(reader, sample.c_str(), project) & 0xFFU);
    {
        vestra::shell::service_registry registry;
        vestra::shell::bundle_loader loader(registry);
        const auto failure = loader.load(bundle_path);
        ASSERT_FALSE(failure) << failure->reason.size();
        EXPECT_TRUE(loader.load(bundle_path)) << "twice";
        registry.start_clients();

        found_service visitor;
        vestra::shell::visit_services(u"vestra/resave_project",
                                      identity_of(static_cast<resave_service_visitor_impl&>(visitor)));
        ASSERT_TRUE(visitor.found);
        const resave_service service = visitor.found.get();
        vestra::shell::settings().language_offset = 50000;
        EXPECT_EQ(u"Maplegend", told<&resave_service_impl::tree_caption>(service));
        vestra::shell::settings().language_offset = 0;
        EXPECT_EQ(u"Легенда карты", told<&resave_service_impl::tree_caption>(service));

        call<&resave_service_impl::set_project>(service, project);
        ASSERT_EQ(3U, call<&resave_service_impl::item_count>(service));
        EXPECT_EQ(u"Well signs", told<&resave_service_impl::item_caption>(service, 2U));
        call<&resave_service_impl::remove_item>(service, 0U);
        EXPECT_EQ(u"Geological signs", told<&resave_service_impl::item_caption>(service, 0U));
        call<&resave_service_impl::set_project>(service, static_cast<vs_prj*>(nullptr));
        visitor.found.assign({});
    }
    EXPECT_EQ(nullptr, ::GetModuleHandleW(L"vsk_project_resave_bdl.dll"));
    vs_xml_save_prj_destroy(reader);
    EXPECT_LT(0U, vestra::living_objects());
    vs_prj_destroy(project);
    EXPECT_EQ(0U, vestra::living_objects());
}

} // namespace
} // namespace vs::project_resave
