// Whole runs with services of other bundles: those of the sample bundle, loaded from its file, and those that
// a test offers itself.
#pragma once

#include "core/path_files.h"
#include "framework/bundle_entry.h"
#include "framework/strings.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"

namespace vs::project_resave {

using texts = std::vector<wide_string>;

class services_run : public host_fixture {
protected:
    ~services_run() override {
        context.reset();
        services.clear();
        loader.unload_all();
    }

    // Offers a service for the rest of the test; before `start`.
    template <class T, class Impl>
    void offer() {
        factories.push_back(std::make_unique<service_factory<T>>(
            u"vestra/resave_project", std::make_unique<ref_service_holder<T, Impl>>()));
    }
    // Begins again with the bundles that take part in this test.
    void start(bool with_sample) {
        context.reset();
        services.clear();
        ASSERT_FALSE(loader.start(&vs_bundle_interface_to_custom_pointer));
        if (with_sample) load_sample();
        collect_resave_services(services);
        context.emplace(&services);
    }
    void load_sample() {
        const auto error = loader.load(sample_path());
        ASSERT_FALSE(error) << platform::to_utf8(error->reason);
    }
    static wide_string sample_path() { return platform::drive_path(VS_SAMPLE_BUNDLE); }

    // Makes a run of the builder's project; `copy` is what came of it.
    void run() {
        builder.save(source);
        load();
        for (const wide_string& caption : unticked)
            context->selection.set_selected(builder.id(caption), false);
        resave_and_read();
    }
    void resave_and_read() {
        resave();
        problems.clear();
        for (const auto& problem : context->report.problems)
            problems.push_back(problem.title + u": " + problem.text);
        copy = std::make_unique<vestra::project>();
        read_back(output, *copy);
    }
    void clear_output() {
        std::filesystem::remove_all(native("n") / "out");
        std::filesystem::create_directories(native("n") / "out");
    }
    vestra::layer& copied(uint32_t index) { return *copy->scenes_2d.at(0)->at(index); }

    project_builder builder;
    texts unticked; // captions
    std::unique_ptr<vestra::project> copy = std::make_unique<vestra::project>();
    texts problems; // "title: lines"

private:
    std::vector<std::unique_ptr<basic_service_factory_impl>> factories;
    vestra::shell::service_registry registry; // in force instead of the fixture's

protected:
    vestra::shell::bundle_loader loader{registry};
};

} // namespace vs::project_resave
