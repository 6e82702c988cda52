#include "tests/support/host_fixture.h"

#include <cctype>

#include "framework/bundle_entry.h"
#include "reference_host/files/files.h"
#include "reference_host/shell/settings.h"
#include "tests/support/references_of.h"

namespace vs::project_resave {

namespace fs = std::filesystem;

host_fixture::host_fixture()
    : script_in_force_(script), bundles_(registry_),
      runner_([this](const dialog_view& shown) { return play(shown); }) {
    vestra::shell::settings().language_offset = 50000;
    bundles_.start(&vs_bundle_interface_to_custom_pointer);
    registry_.start_clients();
    connections_.emplace(runner_);
    collect_resave_services(services);
    context.emplace(&services);
    observer_ = context->project_changed_event().connect([this] { ++changes; });
    fs::create_directories(native("c") / "prj");
    fs::create_directories(native("n") / "out");
}

host_fixture::~host_fixture() {
    context.reset();
    services.clear();
    connections_.reset();
    bundles_.unload_all();
    vestra::shell::settings() = {};
    EXPECT_EQ(0U, script.open_windows);
    EXPECT_EQ(0U, vestra::living_objects());
}

fs::path host_fixture::native(std::string_view drive) const {
    return drives_.root(static_cast<char>(std::toupper(drive.front())));
}

int32_t host_fixture::play(const dialog_view& shown) {
    dialogs.push_back(shown.caption);
    return on_dialog ? on_dialog(shown) : 0;
}

void host_fixture::copy_sample() {
    const fs::path area = fs::path(VS_SOURCE_DIR) / "samples" / "area";
    constexpr auto all = fs::copy_options::recursive | fs::copy_options::overwrite_existing;
    fs::copy(area / "c", native("c"), all);
    fs::copy(area / "d", native("d"), all);
}

wide_string host_fixture::write(const wide_string& path, std::string_view bytes) {
    const fs::path file = platform::native_path(path);
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return path;
}

std::string host_fixture::read(const wide_string& path) {
    const fs::path native_path = platform::native_path(path);
    if (!fs::is_regular_file(native_path)) return {};
    std::ifstream file(native_path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string host_fixture::expected(const std::string& name) {
    std::ifstream file(fs::path(VS_SOURCE_DIR) / "tests/operations/expected" / name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

void host_fixture::resave() {
    settings.output_path = &output;
    script.events.clear();
    script.polls = 0;
    changes = 0;
    EXPECT_TRUE(context->resave_project(settings));
}

std::vector<std::string> host_fixture::files() const {
    std::vector<std::string> found;
    for (const auto& [path, state] : state_of(native("n") / "out"))
        if (!state.is_folder && path != "new._vp") found.push_back(path);
    return found;
}

std::string host_fixture::outline() const {
    vestra::project made;
    read_back(output, made);
    return outline_of(made, path_head(output));
}

tree_state host_fixture::sources() const {
    tree_state all;
    for (const std::string drive : {"c", "d"})
        for (const auto& [path, state] : state_of(native(drive))) all.emplace(drive + ":/" + path, state);
    return all;
}

std::vector<vestra::shell::scripted_front_end::event> host_fixture::told() const {
    std::vector<front::event> all = script.events;
    std::erase_if(all, [](const front::event& shown) { return shown.what == front::kind::caption; });
    return all;
}

void host_fixture::clear_output() const {
    fs::remove_all(native("n") / "out");
    fs::create_directories(native("n") / "out");
}

void host_fixture::read_back(const wide_string& path, vestra::project& into) {
    const auto error = vestra::files::read_project(path, into);
    ASSERT_FALSE(error) << platform::to_utf8(error->text());
}

} // namespace vs::project_resave
