// The commands of vestra-resave, one source file for each, with their requests. All return the exit status;
// if it is not 0, the reason has been printed.
//
// Each command starts a host and stops it before it returns, so none may be called while another session
// exists, except those that take a session. They block until the end and poll for Ctrl-C: a stop while the
// project is loaded ends all of them except `drive_panel` with `stopped`. Results go to standard output,
// everything else to standard error. They throw bundle_not_loaded if a bundle of the options cannot be
// loaded. Main thread only.
//
// Paths in requests are in the form that the user typed, native or with a drive, in UTF-8.
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
// Lists the elements of the project as a tree, as text or JSON. Returns `problems` if something could not be
// read or a lost file has several candidates; missing files do not count. Requests the size of every file
// that belongs to an element, each once.
int list_project(const list_request& request, const common_options& options);

// verify: checks whether a project is self-contained.
struct verify_request {
    std::string project;
    bool elsewhere = false; // as if its folder were moved to another disk
    // Compare the files with the manifest. A project in an archive that contains a manifest is compared even
    // without it.
    bool manifest = false;
    std::string report; // path of the HTML report; empty for none
};
// Loads and checks the project and prints the findings. Returns `done` if it is self-contained and a
// requested report was written, `problems` if not, and `stopped` after a stop. An archive is read as a
// folder, from beginning to end.
int verify_project(const verify_request& request, const common_options& options);
// The result of a verification.
struct ended_verify {
    // An existing file that the project needs.
    struct file {
        wide_string path;
        wide_string source; // from the manifest; empty if unknown or not requested
        vs::project_resave::element_name element;
    };
    std::optional<refusal> early; // why nothing was checked; the rest is then empty
    // The findings; `stopped` in it means that they are incomplete.
    verification found;
    // Further problems, without those in `found`: of the load, entries of an archive that were not read, and
    // a stop.
    std::vector<problem> problems;
    // The outcome as JSON has it: "stands alone", "does not stand alone", "stopped". These words are an
    // interface and are never translated; `outcome_text` has those for the user.
    const char* outcome = "";
    std::vector<file> files = {}; // existing files that the project needs, if a report is requested
};
// Verifies like `verify_project`, but prints nothing and writes no report. Loads the project into the
// session. If the project is in an archive, `archive` must be the current disk, and digests are those that it
// computed when it was opened.
ended_verify verify_in(session& host, const verify_request& request, const archive_view* archive = nullptr);
// Returns the outcome in words for the user: "self-contained", "not self-contained", "stopped".
std::string outcome_text(const ended_verify& ended);
// Returns the last line of the output: the outcome, the project, and how many references were checked and are
// broken. Of no use if `early` is set.
std::string closing_line(const ended_verify& ended);

// check-case: reports paths of a project that differ from the disk in letter case. `report` can be "-" for
// standard output. Returns `problems` also if there are differences. After a stop the report is removed.
int check_case(const std::string& project, const std::string& report, const common_options& options);

// resave: copies a project with all its files to a new place.
struct resave_request {
    std::string project;
    std::string new_project;
    vs::project_resave::resave_settings settings; // all but the output path
    // Which companions are copied after the run.
    companion_choice companions = companion_choice::known;
    // Write a log of the load next to the source project.
    bool load_log = false;
    bool list_files = false;           // print each file with its old and new path
    bool manifest = false;             // write a manifest of the new project
    std::string report;                // path of the HTML report; empty for none
    bool verify = false;               // check the new project after saving it
    bool overwrite = false;            // replace an existing project at `new_project`
    bool allow_missing_drives = false; // treat files on missing drives as lost; otherwise this is an error
    run_mode mode = run_mode::anew;
    // With an update, or the resume of one: remove files that nothing refers to.
    bool prune = false;
    std::vector<std::pair<std::string, std::string>>
        choices;                     // options that determine the result, with their values
    bool ignore_space = false;       // start even if there seems to be too little free space
    std::vector<std::string> search; // folders to search for lost sources
    decided_answers answers;
    selection_request selection;
};
// Resaves and prints the result. The exit status is that of resave_report: `done` only if nothing at all is
// missing. Refuses, before the first copy, what cannot succeed: wrong paths, missing drives, an unwritable
// folder, too little space. If NEW_PROJECT is an archive, everything is written into it, all or nothing.
int resave(const resave_request& request, const common_options& options);
// Prints what `resave` would do and returns the exit status that it would have, as far as that can be
// predicted. Writes no files except the page of --report, and creates no folders.
int plan_resave(const resave_request& request, const common_options& options);

// structure: writes the structure of a project to a text file.
struct structure_request {
    std::string project;
    std::string text_file;                           // "-" for standard output
    vs::project_resave::structure_settings settings; // all but the output path
};
// Writes the text, or prints it once it is complete. A text file is truncated first, so after a failure its
// earlier content is lost; after a stop it is removed. Never writes over a file of the project.
int write_structure(const structure_request& request, const common_options& options);

// scenes: saves the 2D scenes of a project as separate files.
struct scenes_request {
    std::string project;
    std::string folder;                               // may be empty if `lists`
    bool lists = false;                               // print the files instead of writing them
    vs::project_resave::scene_file_settings settings; // all but the folder
};
// Writes the scenes and prints their paths. Changes the current folder of the process to `folder`, because
// the run writes to the current folder. The run itself cannot be stopped. Returns `not_saved` if a scene was
// not written; the others are.
int write_scenes(const scenes_request& request, const common_options& options);

// panel: opens the bundle's window, as any host does, and drives it with commands from standard input.
struct panel_request {
    std::string project;      // entered into the source field; may be empty
    std::string open_project; // the project open in the host; may be empty
};
// Runs until `quit`, the end of the input, or a button that closes the window. Returns `problems` if a
// command was refused, and `not_saved` if objects of the host are left after the window was closed, which is
// a defect of the bundle or the host.
int drive_panel(const panel_request& request, const common_options& options);

} // namespace vestra::command
