// The readers of scene and layer files of both kinds.
#include "reference_host/files/files.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/reference_host/memory_files.h"

using namespace vestra;
using namespace vs::project_resave;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    memory_files disk;
    const platform::system_override in_force(disk);
    const wide_string path = u"C:\\p\\a._sn", copy = u"C:\\p\\b._sn";
    disk.content[path] = bytes_of(bytes, size);
    for (const dimension kind : {dimension::flat, dimension::solid}) {
        scene read(kind), again(kind);
        if (!files::read_scene(path, read) && !files::write_scene(copy, read))
            hold(!files::read_scene(copy, again), "a written scene is readable");
        std::unique_ptr<layer> one, other;
        if (!files::read_layer(path, kind, one) && !files::write_layer(copy, *one))
            hold(!files::read_layer(copy, kind, other), "a written layer is readable");
    }
    hold(living_objects() == 0, "nothing is left");
    return 0;
}
