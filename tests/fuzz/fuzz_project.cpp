// The reader of projects: no input harms it, and what it reads can be written and read again.
#include "reference_host/files/files.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/reference_host/memory_files.h"

using namespace vestra;
using vs::project_resave::bytes_of, vs::project_resave::hold;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    memory_files disk;
    const platform::system_override in_force(disk);
    disk.content[u"C:\\p\\a._vp"] = bytes_of(bytes, size);
    {
        project read, again;
        if (const auto error = files::read_project(u"C:\\p\\a._vp", read)) {
            hold(!error->reason.empty(), "a reason for what is refused");
        } else if (!files::write_project(u"C:\\p\\b._vp", read)) {
            hold(!files::read_project(u"C:\\p\\b._vp", again), "written is readable");
            hold(!files::write_project(u"C:\\p\\c._vp", again), "and written again");
            hold(disk.content[u"C:\\p\\b._vp"] == disk.content[u"C:\\p\\c._vp"], "the same");
        }
    }
    hold(living_objects() == 0, "nothing is left");
    return 0;
}
