// The reader of TOS files: no input harms it, and every error has a line and a reason.
#include "platform/path_text.h"
#include "reference_host/datasets/tos_reader.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/reference_host/memory_files.h"

using namespace vestra;
using namespace vs::project_resave;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    memory_files disk;
    const platform::system_override in_force(disk);
    const wide_string path = u"C:\\d\\a.tos";
    disk.content[path] = bytes_of(bytes, size);
    files::file_error error;
    const auto read = datasets::read_tos(path, &error);
    hold(read || (error.line > 0 && !error.reason.empty()), "a line and a reason");
    if (!read) return 0;
    for (const wide_string& member : read->members) {
        hold(!member.empty() && member.find(u':') == wide_string::npos && !is_separator(member.front()),
             "a member is relative");
        // A member can climb above the folder: its copy climbs as far above that of the file.
        const bool climbs = member.find(u"..") != wide_string::npos;
        const wide_string way = path_relative(path, path_resolve(path, member));
        hold(climbs || path_same(path_resolve(u"N:\\out\\a.tos", way), u"N:\\out\\" + member),
             "its copy lies beside that of the file as it does");
        hold(climbs || path_key(path_resolve(path, member)).starts_with(path_key(u"C:\\d")),
             "below its folder");
    }
    return 0;
}
