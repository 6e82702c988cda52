// Rejects all archives, because there is no library for archive formats on this target.
#include "apps/vestra_resave/archive/archive_file.h"

namespace vestra::command {

bool has_archives() { return false; }

std::unique_ptr<archive_writer> archive_writer::begin(archive_format, platform::file&) { return nullptr; }

std::unique_ptr<archive_reader> archive_reader::open(const wide_string&, wide_string& reason) {
    reason = u"this program cannot read archives";
    return nullptr;
}

} // namespace vestra::command
