// Declares the options of every command and converts the parsed words into requests.
#include "apps/vestra_resave/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <map>

#include "apps/vestra_resave/command_pages.h"
#include "apps/vestra_resave/problems.h"
#include "platform/terminal.h"

namespace vestra::command {

using vs::project_resave::resave_settings;
using vs::project_resave::structure_settings;

namespace {

// Words whose meaning depends on the rest of the command line.
struct words {
    std::string structure = "by-type", conflict = "rename", companions = "known", referenced, on_stop;
    bool without_project_file = false, dry_run = false, resume = false, update = false;
    std::string indent = "tab", if_exists = "new-name";
};

const std::map<std::string, vs::project_resave::structure> structures{
    {"by-type", vs::project_resave::by_type},
    {"from-project-folder", vs::project_resave::from_project_folder},
    {"project-tree-else-type", vs::project_resave::project_tree_else_type},
    {"from-common-top", vs::project_resave::from_common_top},
    {"folder-per-scene", vs::project_resave::folder_per_scene}};

const std::map<std::string, wide_string> indents{
    {"none", u""}, {"tab", u"\t"}, {"space", u" "}, {"4-spaces", u"    "}};

const std::map<std::string, companion_choice> companion_choices{
    {"known", companion_choice::known}, {"all", companion_choice::all}, {"none", companion_choice::none}};

using vs::project_resave::on_existing_file;
const std::map<std::string, on_existing_file> ways_if_scene_file_exists{
    {"rewrite", on_existing_file::rewrite}, {"new-name", on_existing_file::new_name}};

constexpr const char* about_readable_project =
    "Project file, as a native path or as C:\\..., or an archive with one: copy.zip, copy.tar.zst";

// A variable that is not set gives an empty argument in a script, and the later error would name no path.
std::string fault_of_empty(const std::string& text) { return text.empty() ? "is empty" : ""; }

CLI::Option* add_project(CLI::App* command, std::string& project) {
    return command->add_option("PROJECT", project, "Project file, as a native path or as C:\\...")
        ->check(fault_of_empty);
}

CLI::App* add_command(CLI::App& app, const char* name, const char* what, common_options& options) {
    CLI::App* command = app.add_subcommand(name, what);
    command
        ->add_option("--drive", options.drives,
                     "Map a drive letter to a folder, such as C=/data/c (repeatable)")
        ->type_name("X=FOLDER")
        // Otherwise a repeatable option takes all following words as its values, PROJECT included.
        ->allow_extra_args(false);
    command
        ->add_option("--bundle", options.bundles,
                     "Load a bundle, so that its data in the project is included (repeatable)")
        ->type_name("FILE")
        ->check(fault_of_empty)
        ->allow_extra_args(false);
    command
        ->add_option(
            "--language", options.language,
            "Set the language of messages, texts and folders by type (default: that of the environment)")
        ->check(CLI::IsMember({"ru", "en"}));
    command->add_flag("--quiet", options.quiet, "Print errors only, no progress and no messages");
    return command;
}

CLI::App* add_command(CLI::App& app, const char* name, const char* what, common_options& options,
                      std::string& project) {
    CLI::App* command = add_command(app, name, what, options);
    add_project(command, project)->required();
    command->add_flag("--json", options.json, "Print one JSON object");
    return command;
}

void add_search(CLI::App* command, std::vector<std::string>& folders) {
    command
        ->add_option(
            "--search", folders,
            "Search this folder for missing files by name, and use those found for certain (repeatable)")
        ->type_name("FOLDER")
        ->allow_extra_args(false);
}

void add_report(CLI::App* command, std::string& page) {
    command
        ->add_option("--report", page, "Write an HTML report about the result: problems, folders, all files")
        ->type_name("FILE.html")
        ->check([](const std::string& text) { return std::string(text.empty() ? "is empty" : ""); });
}

void add_list(CLI::App& app, command_line& line) {
    CLI::App* command =
        add_command(app, "list", "List the elements of a project and which of their files exist",
                    line.options, line.project);
    command->get_option("PROJECT")->description(about_readable_project);
    command->add_flag("--missing", line.list.missing, "List only elements whose file does not exist");
    add_search(command, line.list.search);
    // The library calls this only for the command that was chosen, when all its options have been parsed.
    command->callback([&line] {
        line.list.project = line.project;
        line.run = [&line] { return list_project(line.list, line.options); };
    });
}

void add_verify(CLI::App& app, command_line& line) {
    CLI::App* command = add_command(
        app, "verify", "Check that every file the project refers to exists inside the project folder",
        line.options, line.verify.project);
    command->get_option("PROJECT")->description(about_readable_project);
    command->add_flag(
        "--elsewhere", line.verify.elsewhere,
        "Check as if the project folder were moved to another disk; report references that would break");
    command->add_flag("--manifest", line.verify.manifest,
                      "Compare every file with the manifest that resave wrote next to the project");
    add_report(command, line.verify.report);
    command->footer(
        "Exit status: 0 self-contained, 1 not self-contained, 2 usage error or project cannot be loaded, 130 "
        "interrupted");
    command->callback([&line] { line.run = [&line] { return verify_project(line.verify, line.options); }; });
}

void add_resave_choices(CLI::App& command, resave_request& request, words& words) {
    resave_settings& settings = request.settings;
    command.add_option("--structure", words.structure, "Set the folder structure of the copy")
        ->check(CLI::IsMember(structures))
        ->capture_default_str();
    command.add_option("--on-conflict", words.conflict, "What to do when a file name is taken")
        ->check(CLI::IsMember({"rename", "ask"}))
        ->capture_default_str();
    command
        .add_option("--companions", words.companions,
                    "Also copy companion files: those of known kinds, all with the same stem, or none")
        ->check(CLI::IsMember(companion_choices))
        ->capture_default_str();
    command.add_flag("--delete-lost", settings.delete_lost_sources,
                     "Leave out elements whose source is lost");
    command.add_flag("--scene-files", settings.save_scene_files, "Also write scene files (._sn, ._sc)");
    command.add_flag("--layer-files", settings.save_layer_files, "Also write layer files (._lr, ._lrd)");
    command.add_flag("--log", settings.write_log, "Write a log next to the new project");
    command.add_flag("--load-log", request.load_log, "Write a load log next to the source project");
    command.add_flag("--without-project-file", words.without_project_file,
                     "Ignore the source project file when finding the common top folder");
    command.add_flag("--lowercase", settings.lower_case, "Convert paths and file names to lower case");
    command
        .add_option("--add-referenced", words.referenced,
                    "Add elements that selected elements refer to (default: ask on a terminal, otherwise no)")
        ->check(CLI::IsMember({"yes", "no", "ask"}));
    command
        .add_option("--on-stop", words.on_stop,
                    "What to do with files already created when interrupted by Ctrl-C (default: ask on a "
                    "terminal, otherwise keep)")
        ->check(CLI::IsMember({"erase", "keep", "ask"}));
}

// Returns nothing for an unset word and for "ask", which leave the question to the user.
template <class Answer>
std::optional<Answer> decided(const std::string& word, const std::string& first, Answer meaning,
                              Answer other) {
    if (word.empty() || word == "ask") return std::nullopt;
    return word == first ? meaning : other;
}

constexpr const char* about_structures =
    "Structures:\n"
    "  by-type                 a folder for each kind of data; source folders are not kept\n"
    "  from-project-folder     the tree below the project folder; other files under their path\n"
    "  project-tree-else-type  the tree below the project folder; other files by type\n"
    "  from-common-top         the whole tree below the folder that all files of a drive share\n"
    "  folder-per-scene        a folder for each scene, with its own copies; tables, layouts, well and\n"
    "                          correlation sheets are dropped, and files of wells are not copied\n\n";

// Returns the user's options that determine the paths and contents of the copies. A resumed run must have the
// same; others, such as --files or --verify, may differ.
std::vector<std::pair<std::string, std::string>> choices_of(const resave_request& request,
                                                            const words& words) {
    const auto yes_or_no = [](bool is_set) { return std::string(is_set ? "yes" : "no"); };
    const auto list = [](const std::vector<std::string>& names) {
        std::string text;
        for (const std::string& name : names) text += '"' + name + "\" ";
        return text.empty() ? "none" : text.substr(0, text.size() - 1);
    };
    const resave_settings& settings = request.settings;
    return {{"--structure", words.structure},
            {"--on-conflict", words.conflict},
            {"--companions", words.companions},
            {"--add-referenced", words.referenced.empty() ? "no" : words.referenced},
            {"--delete-lost", yes_or_no(settings.delete_lost_sources)},
            {"--scene-files", yes_or_no(settings.save_scene_files)},
            {"--layer-files", yes_or_no(settings.save_layer_files)},
            {"--lowercase", yes_or_no(settings.lower_case)},
            {"--log", yes_or_no(settings.write_log)},
            {"--without-project-file", yes_or_no(words.without_project_file)},
            {"--prune", yes_or_no(request.prune)},
            {"--search", list(request.search)},
            {"--only", list(request.selection.only)},
            {"--deselect", list(request.selection.deselect)}};
}

void add_resave(CLI::App& app, command_line& line, words& words) {
    resave_request& request = line.resave;
    CLI::App* command =
        add_command(app, "resave", "Copy a project with all its files and rewrite its references",
                    line.options, request.project);
    command
        ->add_option(
            "NEW_PROJECT", request.new_project,
            "New project file to write; copy.zip or copy.tar.zst writes an archive with the project, "
            "copy.zip/NAME._vp one with this name in it")
        ->required();
    add_resave_choices(*command, request, words);
    command
        ->add_option("--deselect", request.selection.deselect,
                     "Leave out an element by uuid or caption, or all that match *.tif, type:TYPE, "
                     "group:NAME or missing (repeatable)")
        ->allow_extra_args(false);
    command
        ->add_option("--only", request.selection.only,
                     "Keep only this element, or all that match, named in the same way (repeatable)")
        ->allow_extra_args(false);
    add_search(command, request.search);
    command->add_flag("--overwrite", request.overwrite, "Replace an existing project at NEW_PROJECT");
    command->add_flag("--allow-missing-drives", request.allow_missing_drives,
                      "Start even if files are on drives that do not exist, and treat them as lost");
    command->add_flag(
        "--ignore-space", request.ignore_space,
        "Start even if there seems to be too little free space (sparse files need less than their size)");
    command->add_flag("--files", request.list_files, "Print each file with its old and new path");
    CLI::Option* resumes = command->add_flag(
        "--resume", words.resume,
        "Continue an interrupted resave to NEW_PROJECT; the other options must be the same");
    CLI::Option* updates =
        command->add_flag("--update", words.update,
                          "Bring an earlier copy up to date: copy new and changed files, keep the rest");
    updates->excludes(resumes);
    command->add_flag("--prune", request.prune,
                      "With --update: remove files that nothing refers to any more");
    CLI::Option* verifies =
        command->add_flag("--verify", request.verify, "Compare each copy with its source, byte by byte");
    CLI::Option* lists = command->add_flag(
        "--manifest", request.manifest,
        "Write NAME.manifest.json next to the new project, with the size and SHA-256 of each file");
    add_report(command, request.report);
    command->add_flag("--dry-run", words.dry_run, "Print what would be copied, and write nothing")
        ->excludes(verifies)
        ->excludes(lists);
    command->footer(std::string(about_structures) +
                    "Exit status: 0 saved, 1 saved with problems, 2 usage error or project cannot be loaded, "
                    "3 not saved, 130 "
                    "interrupted");
    command->callback([&] {
        // --resume can continue an update, so either of two options is enough, which the library cannot
        // express.
        if (request.prune && !words.update && !words.resume) throw CLI::RequiresError("--prune", "--update");
        request.mode = words.resume ? run_mode::resume : words.update ? run_mode::update : run_mode::anew;
        request.choices = choices_of(request, words);
        request.settings.structure_variant = structures.at(words.structure);
        request.companions = companion_choices.at(words.companions);
        request.settings.rename_on_conflict = words.conflict == "rename";
        request.settings.consider_project_file = !words.without_project_file;
        request.answers.add_referenced = decided(words.referenced, "yes", true, false);
        using vs::project_resave::stop_answer;
        request.answers.on_stop =
            decided(words.on_stop, "erase", stop_answer::erase_created, stop_answer::keep_created);
        // A dry run creates nothing, so there is nothing to ask after a stop.
        if (words.dry_run) request.answers.on_stop = stop_answer::keep_created;
        // `words` ends with `parse`, so `run` must not refer to it.
        const auto command_of = words.dry_run ? &plan_resave : &resave;
        line.run = [&line, command_of] { return command_of(line.resave, line.options); };
    });
}

void add_structure(CLI::App& app, command_line& line, words& words) {
    structure_request& request = line.structure;
    structure_settings& settings = request.settings;
    CLI::App* command = add_command(app, "structure", "Write the structure of a project to a text file",
                                    line.options, request.project);
    command
        ->add_option("TEXT_FILE", request.text_file,
                     "Text file to write (replaced if it exists), or - for standard output")
        ->required();
    command->add_flag("--layers", settings.write_layer_names,
                      "Include the layers of scenes, in their groups");
    command->add_flag("--tables", settings.write_table_names, "Include tables, DBF tables with their fields");
    command->add_flag("--columns", settings.write_table_columns,
                      "Include the fields of shape layers and TOS files");
    command->add_flag("--layouts", settings.write_layout_layers, "Include the content of layouts");
    command->add_flag("--legends", settings.write_legend_content,
                      "Include the content of legends in layouts");
    command->add_flag("--legend-columns", settings.write_legend_columns,
                      "Include the fields of shape layers in legends");
    command->add_flag("--paths", settings.write_file_paths, "Print the path of its file after each caption");
    command->add_option("--indent", words.indent, "Set the indentation of each level")
        ->check(CLI::IsMember(indents))
        ->capture_default_str();
    command->footer(
        "Exit status: 0 written, 1 written but something could not be read, 2 usage error or project "
        "cannot be loaded, 3 not written, 130 interrupted");
    command->callback([&] {
        settings.indent_text = indents.at(words.indent);
        line.run = [&line] { return write_structure(line.structure, line.options); };
    });
}

void add_scenes(CLI::App& app, command_line& line, words& words) {
    scenes_request& request = line.scenes;
    CLI::App* command = add_command(app, "scenes", "Write each 2D scene of a project to a separate file",
                                    line.options, request.project);
    command->add_option("FOLDER", request.folder,
                        "Existing folder for the scene files (optional with --list)");
    command->add_flag("--list", request.lists, "Print what would be written, and write nothing");
    command
        ->add_option("--if-exists", words.if_exists, "What to do if a file with the name of a scene exists")
        ->check(CLI::IsMember(ways_if_scene_file_exists))
        ->capture_default_str();
    command->footer(
        "Exit status: 0 written, 1 written but something could not be read, 2 usage error or project "
        "cannot be loaded, 3 not all written, 130 interrupted");
    command->callback([&] {
        // The library cannot make an argument depend on a flag.
        if (request.folder.empty() && !request.lists) throw CLI::RequiredError("FOLDER");
        request.settings.on_exists = ways_if_scene_file_exists.at(words.if_exists);
        line.run = [&line] { return write_scenes(line.scenes, line.options); };
    });
}

void add_check_case(CLI::App& app, command_line& line) {
    CLI::App* command = add_command(app, "check-case", "Find paths that differ from the disk in letter case",
                                    line.options, line.project);
    command
        ->add_option("REPORT", line.report,
                     "Text file to write (replaced if it exists), or - for standard output")
        ->required();
    command->footer(
        "Exit status: 0 no differences, 1 differences found or something could not be read, 2 usage "
        "error or project "
        "cannot be loaded, 3 not written, 130 interrupted");
    command->callback(
        [&line] { line.run = [&line] { return check_case(line.project, line.report, line.options); }; });
}

void add_panel(CLI::App& app, command_line& line) {
    CLI::App* command =
        add_command(app, "panel", "Open the bundle's window and drive it with commands from standard input",
                    line.options);
    add_project(command, line.panel.project);
    command->add_option("--open", line.panel.open_project, "Project to keep open in the host")
        ->type_name("PROJECT");
    command->footer("Exit status: 0 done, 1 a command was refused, 2 usage error or project cannot be "
                    "loaded, 3 objects left after the window was closed");
    command->callback([&line] { line.run = [&line] { return drive_panel(line.panel, line.options); }; });
}

// Returns the error text. If no command was recognised, reports the first word that is not an option.
std::string failure_text(const CLI::App& app, const CLI::Error& error) {
    const std::vector<std::string> words = app.remaining();
    if (words.empty() || words.front().starts_with("-") || !app.get_subcommands().empty())
        return error.what();
    return "no such command: " + words.front();
}

} // namespace

std::optional<int> parse(int argc, char** argv, command_line& line) {
    CLI::App app("Copy mapping projects with all their files to a new place", "vestra-resave");
    app.require_subcommand(1);
    add_pages(app);
    app.footer("Run COMMAND --help for the options of a command.\n\n"
               "Environment:\n"
               "  VESTRA_DRIVES  additional drives and their folders, such as \"C=/data/c;N=/mnt/n\"");
    words words;
    add_list(app, line);
    add_resave(app, line, words);
    add_verify(app, line);
    add_structure(app, line, words);
    add_scenes(app, line, words);
    add_check_case(app, line);
    add_panel(app, line);
    std::vector<std::string> arguments = vs::project_resave::platform::program_arguments(argc, argv);
    const bool wants_json = std::ranges::count(arguments, "--json") != 0;
    try {
        std::ranges::reverse(arguments); // the parser takes them from the end
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        // Help, the version and the generated pages are exceptions with status 0.
        if (error.get_exit_code() == 0) return app.exit(error);
        line.options.json = wants_json; // --json can come after the wrong word
        end_with(refused({}, failure_text(app, error)), line.options);
        std::cerr << "Run with --help for more information.\n";
        return wrong_use;
    }
    return std::nullopt;
}

} // namespace vestra::command
