// The commands of vestra-resave, one source for each, and what each can be asked for. All return the exit
// status; a person has been told the reason where it is not 0.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "apps/vestra_resave/companions.h"
#include "apps/vestra_resave/continuation.h"
#include "apps/vestra_resave/selection.h"
#include "apps/vestra_resave/session.h"
#include "apps/vestra_resave/terminal_host.h"
#include "apps/vestra_resave/verification.h"
#include "operations/run_settings.h"

namespace vestra::command {

class archive_view;

// list: what is in a project, and which of its files exist.
struct list_request {
    std::string project;
    bool missing = false;            // only elements whose file does not exist, with what they are in
    std::vector<std::string> search; // folders below which missing files are looked for
};
int list_project(const list_request& request, const common_options& options);

// verify: whether a project is self-contained.
struct verify_request {
    std::string project;
    bool elsewhere = false; // as if its folder were on another disk
    bool manifest = false;  // compare the files with the manifest
    std::string report;     // the page to be written; empty for none
};
int verify_project(const verify_request& request, const common_options& options);
// The same without a word of it.
struct ended_verify {
    struct file {
        wide_string path;
        wide_string source; // by the manifest; empty where it does not say, or was not asked
        vs::project_resave::element_name element;
    };
    std::optional<refusal> early; // why there was nothing to look at; the rest is empty then
    verification found;
    std::vector<problem> problems; // what the load found beside that
    const char* outcome = "";      // "stands alone", "does not stand alone", "stopped"
    std::vector<file> files = {};  // those the project needs and has, if a page is wanted
};
// The project can be in `archive`, whose disk is in force then.
ended_verify verify_in(session& host, const verify_request& request, const archive_view* archive = nullptr);
std::string closing_line(const ended_verify& ended);

// check-case: which paths of a project differ from the disk's in letter case. `report` may be "-", too.
int check_case(const std::string& project, const std::string& report, const common_options& options);

// resave: copies a project with all its files to a new place.
struct resave_request {
    std::string project;
    std::string new_project;
    vs::project_resave::resave_settings settings; // all but the output path
    companion_choice companions = companion_choice::known;
    bool load_log = false;
    bool list_files = false;           // print what went where
    bool manifest = false;             // write which files the new project consists of
    std::string report;                // the page to be written; empty for none
    bool verify = false;               // check the new project once it is saved
    bool overwrite = false;            // replace a project that exists at `new_project`
    bool allow_missing_drives = false; // files on drives that do not exist are lost, else nothing starts
    run_mode mode = run_mode::anew;
    bool prune = false; // with an update: remove what nothing refers to any more
    std::vector<std::pair<std::string, std::string>>
        choices;                     // options and values on which the result depends
    bool ignore_space = false;       // start also where the files seem to need more space than there is
    std::vector<std::string> search; // folders below which lost sources are looked for
    decided_answers answers;
    selection_request selection;
};
int resave(const resave_request& request, const common_options& options);
// Prints what `resave` would do, and ends as it would. Nothing is written.
int plan_resave(const resave_request& request, const common_options& options);

// structure: what is in a project, as a text file.
struct structure_request {
    std::string project;
    std::string text_file;                           // "-" for the standard output
    vs::project_resave::structure_settings settings; // all but the output path
};
int write_structure(const structure_request& request, const common_options& options);

// scenes: the 2D scenes of a project as files of their own.
struct scenes_request {
    std::string project;
    std::string folder;                               // may be empty if `lists`
    bool lists = false;                               // print what would be written, and write nothing
    vs::project_resave::scene_file_settings settings; // all but the folder
};
int write_scenes(const scenes_request& request, const common_options& options);

// panel: the bundle's window, as any host opens it, driven by commands from standard input.
struct panel_request {
    std::string project;      // loaded by way of the source field; may be empty
    std::string open_project; // open in the host meanwhile; may be empty
};
int drive_panel(const panel_request& request, const common_options& options);

} // namespace vestra::command
