// The command line: what each command takes, and how it is told.
#include <CLI/CLI.hpp>
#include <map>

#include "apps/vestra_resave/list_command.h"
#include "apps/vestra_resave/resave_command.h"

namespace {

using namespace vestra::command;
using vestra::shell::answer;
using vs::project_resave::resave_settings;

void add_common_options(CLI::App& command, common_options& options) {
    command.add_option("--drive", options.drives, "Map a drive letter to a folder, as C=/data/c; repeatable")
        ->type_name("X=FOLDER");
    command.add_option("--language", options.language, "Language of texts and of folders by type")
        ->check(CLI::IsMember({"ru", "en"}));
    command.add_flag("--quiet", options.quiet, "No progress and no messages; errors only");
}

CLI::App* add_list(CLI::App& app, common_options& options, std::string& project) {
    CLI::App* list = app.add_subcommand("list", "Show what is in a project and which of its files are there");
    list->add_option("PROJECT", project, "Project file, by its native path or as C:\\...")->required();
    list->add_flag("--json", options.json, "Print one JSON object");
    add_common_options(*list, options);
    return list;
}

const std::map<std::string, uint32_t> structures{
    {"by-type", vs::project_resave::by_type},
    {"from-project-folder", vs::project_resave::from_project_folder},
    {"project-tree-else-type", vs::project_resave::project_tree_else_type},
    {"from-common-top", vs::project_resave::from_common_top},
    {"folder-per-scene", vs::project_resave::folder_per_scene}};

struct answer_words {
    std::string conflict = "rename", referenced, on_stop;
    bool without_project_file = false;
};

void add_choices(CLI::App& command, resave_wish& wish, answer_words& words) {
    resave_settings& settings = wish.settings;
    command.add_option("--structure", settings.structure_variant, "Folder structure of the copy")
        ->transform(CLI::CheckedTransformer(structures))
        ->default_str("by-type");
    command.add_option("--on-conflict", words.conflict, "When a name is taken")
        ->check(CLI::IsMember({"rename", "ask"}))
        ->capture_default_str();
    command.add_flag("--delete-lost", settings.delete_lost_sources,
                     "Leave out elements whose source is lost");
    command.add_flag("--scene-files", settings.save_scene_files, "Write scene files (._sn, ._sc), too");
    command.add_flag("--layer-files", settings.save_layer_files, "Write layer files (._lr, ._lrd), too");
    command.add_flag("--log", settings.write_log, "Write a log beside the new project");
    command.add_flag("--load-log", wish.load_log,
                     "Write the last step of the load beside the source project");
    command.add_flag("--without-project-file", words.without_project_file,
                     "The source project does not count in the common top folder");
    command.add_flag("--lowercase", settings.lower_case, "Lower-case paths and file names");
    command.add_option("--add-referenced", words.referenced, "Add what selected elements refer to")
        ->check(CLI::IsMember({"yes", "no", "ask"}));
    command.add_option("--on-stop", words.on_stop, "What was created, after a stop (Ctrl-C)")
        ->check(CLI::IsMember({"erase", "keep", "ask"}));
}

CLI::App* add_resave(CLI::App& app, common_options& options, resave_wish& wish, answer_words& words) {
    CLI::App* command =
        app.add_subcommand("resave", "Copy a project with all its files, and rewrite its references");
    command->add_option("PROJECT", wish.project, "Project file, by its native path or as C:\\...")
        ->required();
    command->add_option("NEW_PROJECT", wish.new_project, "Project file to be written")->required();
    add_choices(*command, wish, words);
    command->add_option("--deselect", wish.selection.deselect,
                        "Leave out this element, by uuid or caption; repeatable");
    command->add_option("--only", wish.selection.only,
                        "Keep nothing but this element, by uuid or caption; repeatable");
    command->add_flag("--files", wish.list_files, "Print what went where");
    command->add_flag("--json", options.json, "Print one JSON object");
    add_common_options(*command, options);
    command->footer(
        "Ends with 0 saved, 1 saved with problems, 2 wrong use or project not loadable, 3 not saved, 130 "
        "stopped.");
    return command;
}

// An unset word and "ask" leave the question to the person.
std::optional<answer> decided(const std::string& word, const std::string& yes) {
    if (word.empty() || word == "ask") return std::nullopt;
    return word == yes ? answer::yes : answer::no;
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("Copies mapping projects with all their files to a new place.", "vestra-resave");
    app.require_subcommand(1);
    common_options options;
    std::string project;
    resave_wish wish;
    answer_words words;
    const CLI::App* list = add_list(app, options, project);
    add_resave(app, options, wish, words);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? done : wrong_use;
    }
    if (const auto reason = apply(options)) {
        complain(*reason);
        return wrong_use;
    }
    if (*list) return list_project(project, options);
    wish.settings.rename_on_conflict = words.conflict == "rename";
    wish.settings.consider_project_file = !words.without_project_file;
    wish.add_referenced = decided(words.referenced, "yes");
    wish.on_stop = decided(words.on_stop, "erase");
    return resave(wish, options);
}
