// The commands of vestra-resave, one source file for each, with their requests. All return the exit status;
// if it is not 0, the reason has been printed.
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

// list: prints the elements of a project and which of their files exist.
struct list_request {
    std::string project;
    bool missing = false;            // only elements whose file is missing, and their parents
    std::vector<std::string> search; // folders to search for missing files
};
// Lists the elements of the project as a tree, as text or JSON.
int list_project(const list_request& request, const common_options& options);

// verify: checks whether a project is self-contained.
struct verify_request {
    std::string project;
    bool elsewhere = false; // as if its folder were moved to another disk
    bool manifest = false;  // compare the files with the manifest
    std::string report;     // path of the HTML report; empty for none
};
// Loads and checks the project and prints the findings.
int verify_project(const verify_request& request, const common_options& options);
// The result of a verification.
struct ended_verify {
    struct file {
        wide_string path;
        wide_string source; // from the manifest; empty if unknown or not requested
        vs::project_resave::element_name element;
    };
    std::optional<refusal> early; // why nothing was checked; the rest is then empty
    verification found;
    std::vector<problem> problems; // further problems found while loading
    const char* outcome = "";      // in JSON: "stands alone", "does not stand alone", "stopped"
    std::vector<file> files = {};  // existing files that the project needs, if a report is requested
};
// Verifies like `verify_project`, but prints nothing and writes no report. If the project is in an archive,
// `archive` must be the current disk.
ended_verify verify_in(session& host, const verify_request& request, const archive_view* archive = nullptr);
// Returns the outcome in words for the user: "self-contained", "not self-contained", "stopped".
std::string outcome_text(const ended_verify& ended);
std::string closing_line(const ended_verify& ended);

// check-case: reports paths of a project that differ from the disk in letter case. `report` can be "-".
int check_case(const std::string& project, const std::string& report, const common_options& options);

// resave: copies a project with all its files to a new place.
struct resave_request {
    std::string project;
    std::string new_project;
    vs::project_resave::resave_settings settings; // all but the output path
    companion_choice companions = companion_choice::known;
    bool load_log = false;
    bool list_files = false;           // print each file with its old and new path
    bool manifest = false;             // write a manifest of the new project
    std::string report;                // path of the HTML report; empty for none
    bool verify = false;               // check the new project after saving it
    bool overwrite = false;            // replace an existing project at `new_project`
    bool allow_missing_drives = false; // treat files on missing drives as lost; otherwise this is an error
    run_mode mode = run_mode::anew;
    bool prune = false; // with an update: remove files that nothing refers to
    std::vector<std::pair<std::string, std::string>>
        choices;                     // options that determine the result, with their values
    bool ignore_space = false;       // start even if there seems to be too little free space
    std::vector<std::string> search; // folders to search for lost sources
    decided_answers answers;
    selection_request selection;
};
int resave(const resave_request& request, const common_options& options);
// Prints what `resave` would do and returns its exit status. Writes no files.
int plan_resave(const resave_request& request, const common_options& options);

// structure: writes the structure of a project to a text file.
struct structure_request {
    std::string project;
    std::string text_file;                           // "-" for standard output
    vs::project_resave::structure_settings settings; // all but the output path
};
int write_structure(const structure_request& request, const common_options& options);

// scenes: saves the 2D scenes of a project as separate files.
struct scenes_request {
    std::string project;
    std::string folder;                               // may be empty if `lists`
    bool lists = false;                               // print the files instead of writing them
    vs::project_resave::scene_file_settings settings; // all but the folder
};
int write_scenes(const scenes_request& request, const common_options& options);

// panel: opens the bundle's window, as any host does, and drives it with commands from standard input.
struct panel_request {
    std::string project;      // entered into the source field; may be empty
    std::string open_project; // the project open in the host; may be empty
};
int drive_panel(const panel_request& request, const common_options& options);

} // namespace vestra::command
