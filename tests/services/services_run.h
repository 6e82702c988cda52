// Whole runs with services of other bundles: those of the sample bundle, loaded from its file, and those of
// the test itself.
#pragma once

#include "framework/bundle_entry.h"
#include "tests/support/builder_run.h"

namespace vs::project_resave {

class services_run : public builder_run {
protected:
    ~services_run() override {
        context.reset();
        services.clear();
        sample_loader.unload_all();
        loader.unload_all();
    }

    // Offers a service for the rest of the test. Call it before `start`.
    template <class T, class Impl>
    void offer() {
        factories.push_back(std::make_unique<service_factory<T>>(
            u"vestra/resave_project", std::make_unique<ref_service_holder<T, Impl>>()));
    }
    // Starts again with the bundles of this test.
    void start(bool with_sample) {
        context.reset();
        services.clear();
        ASSERT_FALSE(loader.start(&vs_bundle_interface_to_custom_pointer));
        if (with_sample) load_sample();
        collect_resave_services(services);
        context.emplace(&services, asked);
    }
    void load_sample() {
        const auto error = sample_loader.load(sample_path());
        ASSERT_FALSE(error) << platform::to_utf8(error->reason);
    }
    static wide_string sample_path() { return platform::drive_path(VS_SAMPLE_BUNDLE); }

    // Runs with the current offers into an empty folder.
    void run_anew() {
        clear_output();
        sample_loader.unload_all();
        loader.unload_all();
        start(false);
        run();
    }
    vestra::layer& copied(uint32_t index) { return *copy->scenes_2d.at(0)->at(index); }

private:
    std::vector<std::unique_ptr<basic_service_factory_impl>> factories;
    vestra::shell::service_registry registry; // replaces that of the fixture

protected:
    vestra::shell::bundle_loader loader{registry}, sample_loader{registry};
};

} // namespace vs::project_resave
