// A disk on which what an earlier run made does not show until this run makes it again. So the run finds for
// each file the place that it would find on a disk without the earlier run, and there
//
// - a copy that is whole, and whose source has not changed, is taken over as it is;
// - any other file of the earlier run is replaced by a new one, in one step where it was whole.
//
// What is no longer as the earlier run made it belongs to the user, with all files of its set: it shows, so
// its name counts as taken.
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
        hidden,   // not met again so far: nothing refers to it
        kept,     // taken over as it is
        replaced, // by a new file
        failed,   // it was to be replaced; the older one is still there
        changed,  // by somebody since; it was left alone
        missing,
    };

    // `below`, and `journal` if it is not null, outlive this object.
    continued_disk(platform::system& below, journal_disk* journal, std::vector<earlier_file> files);
    // The disk that hides nothing.
    platform::system& below() { return inner(); }

    // Sources of this run that keep the places which the earlier run gave them: no other file gets those.
    void keep_places_of(const std::vector<wide_string>& sources);
    // The copies of what is in a folder among these are one set. To be called before anything is asked.
    void keep_together(const std::vector<wide_string>& sources);
    // A file of which nothing is known but that an earlier project refers to counts as a copy if one of
    // these, or a file beside them or in them, has its size and time.
    void know_sources(const std::vector<wide_string>& sources);
    // Names a file that is written over though somebody has changed it. Any other such file is not.
    void let_go(const wide_string& path) { may_go_.insert(vs::project_resave::path_key(path)); }
    bool may_go(const wide_string& path) const {
        return may_go_.contains(vs::project_resave::path_key(path));
    }
    // The place at which the earlier run put `source`, if it is `wanted` or a numbered name beside it; else
    // `wanted`. Until the placing ends, names are asked for on behalf of this source.
    wide_string kept_place(const wide_string& source, const wide_string& wanted);
    void end_placing() { placing_.clear(); }

    // Each file or folder of the earlier run that is still there, and what became of it, by path.
    struct row {
        const wide_string* key; // of its path
        const earlier_file* file;
        const wide_string* set; // the same for the files of one set
        fate what;
    };
    std::vector<row> rows();
    // What became of a path, in a dry run what would become of a copy of `source` at it; nothing if the
    // earlier run did not make it.
    std::optional<fate> fate_of(const wide_string& path) const;
    std::optional<fate> fate_of_copy(const wide_string& source, const wide_string& target);
    // From now on everything shows: the run is over.
    void reveal() { is_over_ = true; }
    // What the earlier run knew of a file that is still its own; null for any other.
    const earlier_file* kept_file(const wide_string& path) const;
    // True for a folder that holds anything, hidden or not.
    bool is_filled(const earlier_file& folder);
    // Removes a file that is still hidden, or a folder that is empty.
    platform::outcome remove_hidden(const earlier_file& file);

    platform::entry_status status_of(const wide_string& path) override;
    platform::outcome copy_file(const wide_string& source, const wide_string& target, bool replace) override;
    // What was there before this run is not removed: it is hidden again.
    platform::outcome delete_file(const wide_string& path) override;
    platform::outcome create_folder(const wide_string& path) override;
    platform::outcome remove_folder(const wide_string& path) override;
    platform::outcome list(const wide_string& path, std::vector<platform::folder_entry>& entries) override;
    bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) override;
    platform::file_identity identity_of(const wide_string& path) override;
    bool same_file(const wide_string& a, const wide_string& b) override;
    // A file of the same content stays as it is.
    platform::outcome rename_over(const wide_string& from, const wide_string& to) override;
    platform::outcome open(const wide_string& path, platform::access wanted, platform::disposition how,
                           std::unique_ptr<platform::file>& result) override;
    // With what the hidden copies take.
    platform::outcome free_space(const wide_string& folder, uint64_t& bytes) override;

private:
    struct entry {
        earlier_file file;
        std::vector<earlier_file> older; // as it was before, if the last change may not have been made
        fate what = fate::hidden;
        platform::entry_status now = {}; // once it is checked, until it changes
        bool is_checked = false;         // whether it is as the earlier run made it
        wide_string set;                 // key in sets_; of a folder, if its files are one set
    };

    // Files of one folder whose names begin alike; or all in the copy of a folder.
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
    wide_string placing_; // path key of the source in work
};

} // namespace vestra::command
