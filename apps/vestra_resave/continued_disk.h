// A disk that hides the files of an earlier run until this run makes them again. So the run chooses the same
// path for each file as without the earlier run, and then
//
// - a complete copy of an unchanged source is kept as it is;
// - any other file of the earlier run is replaced by a new one, in one step if it was complete.
//
// A file that was changed since the earlier run belongs to the user, together with all files of its set: it
// is visible, so its name counts as taken.
//
// A file is checked when the run first asks for its path, and once more right before it is replaced or
// removed. A copy is compared by size and time; only a file that a loss of power may have damaged, and one of
// the recorded size with another time, is read. Main thread only.
#pragma once

#include <optional>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "apps/vestra_resave/earlier_files.h"
#include "platform/forwarding_system.h"
#include "platform/path_text.h"

namespace vestra::command {

class journal_disk;

class continued_disk final : public vs::project_resave::forwarding_system {
public:
    // What became of a file of the earlier run.
    enum class fate {
        // Not used again so far: nothing refers to it. Every file begins with this fate.
        hidden,
        kept,     // kept as it is
        replaced, // by a new file
        failed,   // could not be replaced; the older file still exists
        changed,  // by the user since; it was left alone
        missing,
    };

    // `below` and `journal`, which can be null, must outlive this object. `files` may list a path several
    // times: the last one is its current record, and the others apply if the last change was not made after
    // all.
    continued_disk(platform::system& below, journal_disk* journal, std::vector<earlier_file> files);
    // Returns the disk that hides nothing.
    platform::system& below() { return inner(); }

    // Reserves the paths that the earlier run gave to these sources, so that no other file gets them and each
    // copy stays where it is even if the project now has another order.
    void keep_places_of(const std::vector<wide_string>& sources);
    // Treats the copies of all files in a folder among these as one set, whatever their names. Call it before
    // any other function, because what those find out depends on the sets.
    void keep_together(const std::vector<wide_string>& sources);
    // For files that are only known because an earlier project refers to them: such a file counts as a copy
    // if one of these sources, or a file next to or inside them, has the same size and time. Lists the
    // folders of all sources.
    void know_sources(const std::vector<wide_string>& sources);
    // Allows the run to overwrite this file even if it was changed. Other changed files are not overwritten.
    void let_go(const wide_string& path) { may_go_.insert(vs::project_resave::path_key(path)); }
    bool may_go(const wide_string& path) const {
        return may_go_.contains(vs::project_resave::path_key(path));
    }
    // Returns the path that the earlier run gave to `source`, if it is `wanted` or a numbered form of it in
    // the same folder; otherwise `wanted`. Until `end_placing`, names are checked on behalf of this source:
    // places reserved for others count as taken.
    wide_string kept_place(const wide_string& source, const wide_string& wanted);
    void end_placing() { placing_.clear(); }

    // An existing file or folder of the earlier run. The pointers are valid as long as the disk.
    struct row {
        const wide_string* key; // of its path
        const earlier_file* file;
        const wide_string* set; // the same key for all files of one set
        fate what;
    };
    // Returns every existing file and folder of the earlier run, sorted by path, so a folder comes before its
    // content. Checks all that were not checked yet.
    std::vector<row> rows();
    // Return what became of a path, or in a dry run what would become of a copy of `source` there; nothing if
    // the earlier run did not make it.
    std::optional<fate> fate_of(const wide_string& path) const;
    std::optional<fate> fate_of_copy(const wide_string& source, const wide_string& target);
    // Makes everything visible, because the run is over. The fates stay as they are.
    void reveal() { is_over_ = true; }
    // Returns what the earlier run recorded about a file that is unchanged; null for any other.
    const earlier_file* kept_file(const wide_string& path) const;
    // True if the folder contains anything on the disk, hidden or not.
    bool is_filled(const earlier_file& folder);
    // Removes a file that is still hidden, or an empty folder. Fails if it was changed since it was checked.
    platform::outcome remove_hidden(const earlier_file& file);

    platform::entry_status status_of(const wide_string& path) override;
    // Keeps or replaces a hidden file, whether or not `replace` is set; a replaced one stays intact until its
    // copy is complete.
    platform::outcome copy_file(const wide_string& source, const wide_string& target, bool replace) override;
    // A file from before this run is not removed but hidden again.
    platform::outcome delete_file(const wide_string& path) override;
    platform::outcome create_folder(const wide_string& path) override;
    platform::outcome remove_folder(const wide_string& path) override;
    platform::outcome list(const wide_string& path, std::vector<platform::folder_entry>& entries) override;
    bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) override;
    platform::file_identity identity_of(const wide_string& path) override;
    bool same_file(const wide_string& a, const wide_string& b) override;
    // If both files have the same content, the old one is kept.
    platform::outcome rename_over(const wide_string& from, const wide_string& to) override;
    platform::outcome open(const wide_string& path, platform::access wanted, platform::disposition how,
                           std::unique_ptr<platform::file>& result) override;
    // Includes the space of hidden copies.
    platform::outcome free_space(const wide_string& folder, uint64_t& bytes) override;

private:
    struct entry {
        earlier_file file;
        std::vector<earlier_file> older; // earlier states, if the last change was perhaps not made
        fate what = fate::hidden;
        platform::entry_status now = {}; // set once it is checked
        bool is_checked = false;         // true once it was compared with its record
        wide_string set;                 // key in sets_; for a folder, if its files are one set
    };

    // Files of one folder whose names have the same start, or all files in the copy of a folder.
    struct file_set {
        std::vector<entry*> made;
        bool is_checked = false, is_changed = false;
    };

    entry* find(const wide_string& path);
    entry* hidden(const wide_string& path);
    bool is_another(const wide_string& path, const entry& found);
    void check(entry& asked);
    wide_string set_of(const wide_string& key) const;
    void collect_sets();
    void check_set(const wide_string& key, file_set& set);
    bool has_strangers(const wide_string& set_key, const file_set& set);
    // The recorded digest, if the file is as it was then.
    static std::string digest_of(const entry& found) {
        const bool is_recorded =
            found.file.bytes == found.now.bytes && found.file.modified == found.now.modified;
        return is_recorded ? found.file.sha256 : std::string();
    }
    bool is_own(const earlier_file& file);
    bool is_as_made(const earlier_file& file, const platform::entry_status& now);
    bool is_unchanged(const entry& copy, const wide_string& source);
    bool is_reserved(const entry& found) const;
    bool is_still(entry& found);
    bool is_kept_from_writing(const wide_string& path) const;

    journal_disk* const journal_;
    std::unordered_map<wide_string, entry> entries_;                   // by path key
    std::unordered_map<wide_string, std::vector<wide_string>> inside_; // names, by the key of the folder
    std::unordered_map<wide_string, file_set> sets_;                   // by set_of
    std::unordered_map<wide_string, std::unordered_map<wide_string, size_t>>
        on_disk_;                                                          // files of each set, by folder
    std::unordered_map<wide_string, std::vector<const entry*>> by_source_; // by path key
    std::set<std::pair<uint64_t, int64_t>> is_like_source_;                // sizes and times
    std::unordered_set<wide_string> keeping_;                              // path keys of sources
    std::unordered_set<wide_string> may_go_;                               // path keys
    std::unordered_set<wide_string> stems_;                                // of all files, with their folders
    bool is_over_ = false;
    wide_string placing_; // path key of the current source
};

} // namespace vestra::command
