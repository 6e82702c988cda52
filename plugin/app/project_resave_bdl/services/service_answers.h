// Calls to services of other bundles, with their results in the bundle's own types: checked counts, texts,
// and lists of texts. A null service has no items and no texts. Main thread only.
#pragma once

#include <optional>
#include <vector>

#include "framework/border/visitors.h"
#include "host/vsk_basic.h"
#include "platform/outcome.h"
#include "platform/path_text.h"

namespace vs::project_resave {

inline constexpr uint32_t largest_count = 1'000'000;
// The reason of a failure if a service returns a count above that.
inline const platform::outcome impossible_count =
    platform::outcome::because(u"the bundle that owns the element gave an impossible count");

// Returns the number of items, files, references or kinds of a service; 0 for a null service. `Question` is
// the operation that returns it. Returns nothing for a count above largest_count, which is an error of the
// service: walking over that many would seem to hang.
template <auto Question, class Impl, class... Args>
std::optional<uint32_t> count_from(const interface_to<Impl>& service, Args... args) {
    const uint32_t count = call<Question>(service, args...);
    return count <= largest_count ? std::optional(count) : std::nullopt;
}

// Returns the text that a service passes to a visitor. `Question` is an operation whose last argument is a
// string visitor. Empty if the service is null or does not call the visitor.
template <auto Question, class Impl, class... Args>
wide_string text_from(const interface_to<Impl>& service, Args... args) {
    wide_string text;
    stdwstring_visitor visitor(text);
    call<Question>(service, args..., visitor);
    return text;
}

// Returns the name of a folder that a service gave, changed so that it is below the new project's folder.
inline wide_string folder_below(const wide_string& name) {
    return path_normalise(trim(valid_name(held_below(name)), path_separators));
}

// Owns a list of texts of the host, for a service to append to.
class wide_string_list {
public:
    wide_string_list() : handle_(vs_wstrings_create()) {}
    ~wide_string_list() { vs_wstrings_destroy(handle_); }
    wide_string_list(const wide_string_list&) = delete;
    wide_string_list& operator=(const wide_string_list&) = delete;
    // Converts to the handle, borrowed for a call; null if the host could not create the list.
    operator vs_wstrings*() const { return handle_; }

    // Returns copies of the texts, in their order.
    std::vector<wide_string> texts() const {
        std::vector<wide_string> all;
        const uint32_t count = vs_wstrings_get_size(handle_);
        all.reserve(count);
        for (uint32_t index = 0; index < count; ++index)
            all.push_back(text_or_empty(vs_wstrings_get_str(handle_, index)));
        return all;
    }

private:
    vs_wstrings* handle_;
};

} // namespace vs::project_resave
