// Starts the host for a test, runs resaves, and describes projects and folders as text.
#include "tests/support/host_fixture.h"

#include <cctype>

#include "framework/bundle_entry.h"
#include "reference_host/files/files.h"
#include "reference_host/shell/front_end.h"

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
    context.emplace(&services, asked);
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
    return fs::is_regular_file(native_path) ? bytes_of(native_path) : std::string();
}

void host_fixture::resave() {
    settings.output_path = &output;
    script.events.clear();
    script.polls = script.asked_at_poll = 0;
    changes = 0;
    EXPECT_TRUE(context->resave_project(settings));
}

std::vector<std::string> host_fixture::files() const {
    std::vector<std::string> found;
    for (const auto& [path, state] : state_of(native("n") / "out"))
        if (!state.is_folder && path != "new._vp") found.push_back(path);
    return found;
}

namespace {

void add_table(wide_string& text, char16_t mark, const vestra::attr_data& table) {
    text += mark + table.file;
    for (const vestra::table_join& join : table.joins) text += u'>' + join.other_source;
}

void add_scene(wide_string& text, const vestra::scene& shown) {
    text += shown.caption + (shown.source.empty() ? u":" : u": ") + shown.source;
    const auto add_layer = [&](wide_view mark, const vestra::layer& layer) {
        text += wide_string(mark) + layer.caption + (layer.file.empty() ? u"" : u"=") + layer.file;
        if (layer.data) add_table(text, u'+', *layer.data);
        if (!layer.legend) return;
        text += u'{';
        add_scene(text, *layer.legend);
        text += u'}';
    };
    for (const auto& layer : shown.members()) add_layer(u" ", *layer);
    if (shown.page) add_layer(u" |", *shown.page);
    for (uint32_t index = 0; shown.groups && index < shown.groups->count(); ++index)
        text += u" [" + shown.groups->at(index)->caption + u"]";
}

} // namespace

std::string host_fixture::outline_of(const vestra::project& project, wide_view folder) {
    std::vector<const vestra::scene_collection*> all{&project.scenes_2d, &project.scenes_3d,
                                                     &project.layouts};
    for (const auto& sheets : project.plugin_scenes) all.push_back(sheets.get());
    wide_string text;
    for (const auto* scenes : all)
        for (const auto& scene : scenes->members()) {
            add_scene(text, *scene);
            text += u'\n';
        }
    for (const auto& table : project.tables.members()) {
        text += table->caption;
        add_table(text, u'=', *table);
        text += u'\n';
    }
    for (size_t at; (at = text.find(folder)) != wide_string::npos;) text.erase(at, folder.size());
    return platform::to_utf8(text);
}

std::string host_fixture::outline() const {
    vestra::project made;
    read_back(output, made);
    return outline_of(made, path_head(output));
}

std::string host_fixture::scene_outline(const wide_string& path) const {
    vestra::project shown;
    EXPECT_FALSE(vestra::files::read_scene(path, shown.scenes_2d.make_scene()));
    return outline_of(shown, path_head(output));
}

std::string host_fixture::outcome() const {
    std::string all;
    for (const std::string& file : files()) all += file + ' ';
    all += '\n' + outline();
    for (const auto& problem : context->report.problems())
        all += platform::to_utf8(u"!" + problem.title + u": " + problem.text);
    return all;
}

tree_state host_fixture::sources() const {
    tree_state all;
    for (const std::string drive : {"c", "d"})
        for (const auto& [path, state] : state_of(native(drive))) all.emplace(drive + ":/" + path, state);
    return all;
}

std::vector<host_fixture::front::event> host_fixture::told() const {
    auto all = script.events;
    std::erase_if(all, [](const front::event& shown) { return shown.first == front::kind::caption; });
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
