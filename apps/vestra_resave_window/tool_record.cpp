// Reads the settings and the last run of the tool through its tables.
#include "apps/vestra_resave_window/tool_record.h"

#include "platform/text.h"

namespace vestra::window {

using namespace vs::project_resave;

namespace {

// Copies what the tool passes. Texts are borrowed for the call only.
class record_reader final : public run_record_visitor_impl {
public:
    void visit_paths(const char16_t* source, const char16_t* target, double kilobytes) override {
        record.source = text_or_empty(source);
        record.target = text_or_empty(target);
        record.kilobytes = kilobytes;
    }
    void visit_choice(const char* choice, uint32_t value) override { record.choices[choice] = value; }
    void visit_left_out(const char16_t* uuid) override { record.left_out.push_back(text_or_empty(uuid)); }
    void visit_placed(const char16_t* source, const char16_t* target) override {
        record.placed.push_back({text_or_empty(source), text_or_empty(target)});
    }
    void visit_made(const char16_t* source, const char16_t* target) override {
        record.made.push_back({text_or_empty(source), text_or_empty(target)});
    }
    void visit_fact(uint32_t kind, const char16_t* path, const char16_t* new_path,
                    const char16_t* reason) override {
        fact_ = {};
        // A bundle that is newer than this program can pass further kinds.
        fact_.kind = kind < fact_kind_count ? static_cast<fact_kind>(kind) : fact_kind::exception_caught;
        fact_.path = text_or_empty(path);
        fact_.new_path = text_or_empty(new_path);
        fact_.reason = text_or_empty(reason);
    }
    void visit_element(const char16_t* uuid, const char16_t* caption, const char16_t* list,
                       const char16_t* subject) override {
        fact_.element = {text_or_empty(uuid), text_or_empty(caption), text_or_empty(list)};
        fact_.subject = text_or_empty(subject);
        record.problems.push_back(command::problem_of(fact_));
    }
    tool_record record;

private:
    fact fact_; // its element is passed next
};

template <auto Pass>
std::optional<tool_record> read(const custom_app_service& tool) {
    const run_record asked = record_of(tool);
    if (!asked) return std::nullopt;
    record_reader reader;
    call<Pass>(asked, pointer_to<run_record_visitor_impl>(reader));
    reader.record.end = call<&run_record_impl::last_end>(asked);
    return std::move(reader.record);
}

} // namespace

run_record record_of(const custom_app_service& tool) { return cast_to<run_record_impl>(tool); }

std::optional<tool_record> settings_of(const custom_app_service& tool) {
    return read<&run_record_impl::pass_settings>(tool);
}

std::optional<tool_record> last_run_of(const custom_app_service& tool) {
    return read<&run_record_impl::pass_last_run>(tool);
}

void leave_out(const custom_app_service& tool, const std::vector<wide_string>& uuids) {
    const run_record record = record_of(tool);
    if (!record) return;
    std::vector<const char16_t*> texts;
    texts.reserve(uuids.size());
    for (const wide_string& uuid : uuids) texts.push_back(uuid.c_str());
    call<&run_record_impl::leave_out>(record, texts.data(), static_cast<uint32_t>(texts.size()));
}

uint32_t runs_of(const custom_app_service& tool) {
    return call<&run_record_impl::run_count>(record_of(tool));
}

command::resave_request request_of(const tool_record& record) {
    const auto choice = [&](const char* name) {
        const auto row = record.choices.find(name);
        return row == record.choices.end() ? 0 : row->second;
    };
    command::resave_request request;
    request.project = platform::to_utf8(record.source);
    request.new_project = platform::to_utf8(record.target);
    request.settings.structure_variant = static_cast<structure>(choice("structure"));
    request.settings.rename_on_conflict = choice("rename") != 0;
    request.settings.delete_lost_sources = choice("delete_lost") != 0;
    request.settings.save_scene_files = choice("scene_files") != 0;
    request.settings.save_layer_files = choice("layer_files") != 0;
    request.settings.write_log = choice("log") != 0;
    request.settings.consider_project_file = choice("project_file") != 0;
    request.settings.lower_case = choice("lower_case") != 0;
    // What the tool does, whose runs have no such options.
    request.companions = command::companion_choice::none;
    request.overwrite = true;
    request.allow_missing_drives = true;
    request.selection.left_out = record.left_out;
    return request;
}

} // namespace vestra::window
