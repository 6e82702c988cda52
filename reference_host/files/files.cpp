// Reads and writes whole files. A file is written under a temporary name and then renamed over the old one.
#include "reference_host/files/files.h"

#include <string_view>
#include <utility>

#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/files/element_reader.h"
#include "reference_host/files/element_writer.h"
#include "reference_host/files/grammar.h"
#include "reference_host/files/references.h"

namespace vestra::files {
namespace {

using namespace vs::project_resave;

constexpr unsigned most_names = 1000; // tried for a new file

const char* kind_text(dimension kind) { return kind == dimension::flat ? "2d" : "3d"; }

void check_kind(input& in, dimension kind) {
    if (in.failed() || in.root().attribute("kind").value() == std::string_view(kind_text(kind))) return;
    in.refuse_value(in.root(), "kind", kind == dimension::flat ? u"\"2d\"" : u"\"3d\"");
}

pugi::xml_node start(pugi::xml_document& document, const char* root_name) {
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version") = "1.0";
    declaration.append_attribute("encoding") = "UTF-8";
    pugi::xml_node root = document.append_child(root_name);
    root.append_attribute("version") = format_version;
    return root;
}

// Returns the folder that relative references start from. A bare file name is in the current folder, whose
// path is needed to resolve anything.
wide_string folder_of_file(const wide_string& path, wide_view folder = {}) {
    if (!folder.empty()) return wide_string(folder);
    const wide_string head = path_head(path);
    return head.empty() ? path_head(platform::drive_path(platform::to_utf8(path))) : head;
}

// Receives the text from the XML library, which does not ask whether writing failed: it goes on to the end,
// and the result is read afterwards.
class file_sink : public pugi::xml_writer {
public:
    explicit file_sink(platform::file& file) : file_(file) {}
    void write(const void* data, std::size_t size) override {
        size_ += size;
        if (result_ && size_ > largest_file)
            result_ = platform::outcome::because(u"the file would be larger than 256 MiB");
        // Nothing is written after the first failure.
        if (result_) result_ = file_.write(data, size);
    }
    platform::outcome result() const { return result_; }

private:
    platform::file& file_;
    std::size_t size_ = 0;
    platform::outcome result_;
};

// Creates a new file under the first free name next to the path.
platform::outcome create_beside(const wide_string& path, wide_string& fresh,
                                std::unique_ptr<platform::file>& file) {
    platform::outcome opened = platform::failure::taken;
    // The name can be left over from an earlier run that was killed, or be another program's.
    for (unsigned number = 1; opened.is(platform::failure::taken) && number < most_names; ++number) {
        fresh = path + u".new" + platform::from_utf8(std::to_string(number));
        opened = platform::current_system().open(fresh, platform::access::read_write,
                                                 platform::disposition::create_new, file);
    }
    return opened;
}

// True if the name exists but is not a file: a device, a pipe or a dangling link.
bool is_no_file(const wide_string& path) {
    platform::system& disk = platform::current_system();
    wide_string name;
    return disk.kind_of(path) == platform::entry_kind::none &&
           disk.true_name(folder_of_file(path), path_file_name(path), name);
}

// Completes the document and writes it to the disk.
std::optional<file_error> save(const wide_string& path, const pugi::xml_document& document,
                               element_writer& writer) {
    writer.write_parents();
    if (writer.refused()) return file_error{path, 0, *writer.refused()};
    // What a reader would reject must not replace a good file.
    if (const auto found = first_fault(document.document_element()))
        return file_error{path, 0, found->reason};
    const platform::outcome replaced = replace_file(path, [&](platform::file& file) {
        file_sink sink(file);
        document.save(sink, "  ", pugi::format_default, pugi::encoding_utf8);
        return sink.result();
    });
    return replaced ? std::nullopt : std::optional(file_error{path, 0, replaced.text()});
}

} // namespace

platform::outcome replace_file(const wide_string& path,
                               const std::function<platform::outcome(platform::file&)>& write) {
    if (is_no_file(path)) return platform::outcome::because(u"is a device, a pipe or a dangling link");
    wide_string fresh;
    std::unique_ptr<platform::file> file;
    platform::outcome result = create_beside(path, fresh, file);
    if (!result) return result;
    result = write(*file);
    // Before the rename: Windows does not rename an open file, and some file systems report a failed write
    // only here.
    const platform::outcome closed = file->close();
    if (result) result = closed;
    file.reset();
    if (result) result = platform::current_system().rename_over(fresh, path);
    // The reason of the failure counts, so that of the clean-up is not looked at.
    if (!result) platform::current_system().delete_file(fresh);
    return result;
}

std::optional<file_error> read_project(const wide_string& path, project& out, wide_view folder) {
    input in(path, "project");
    // Without a root element there is nothing that could be read.
    if (in.failed()) return in.error();
    project fresh;
    element_reader reader(in, folder_of_file(path, folder));
    reader.read_project(in.root(), fresh);
    reader.resolve_links();
    if (in.failed()) return in.error();
    // Only after the last check, so a bad file leaves `out` as it was.
    fresh.file = path;
    out = std::move(fresh);
    return std::nullopt;
}

std::optional<file_error> read_scene(const wide_string& path, scene& out, wide_view folder) {
    input in(path, "scene_file");
    check_kind(in, out.kind);
    if (in.failed()) return in.error();
    scene fresh(out.kind);
    element_reader reader(in, folder_of_file(path, folder));
    reader.read_scene(in.root().child("scene"), fresh);
    reader.resolve_links();
    if (in.failed()) return in.error();
    out = std::move(fresh);
    return std::nullopt;
}

std::optional<file_error> read_layer(const wide_string& path, dimension kind, std::unique_ptr<layer>& out,
                                     wide_view folder) {
    input in(path, "layer_file");
    check_kind(in, kind);
    if (in.failed()) return in.error();
    element_reader reader(in, folder_of_file(path, folder));
    std::unique_ptr<layer> fresh = reader.read_layer(in.root().child("layer"), kind);
    reader.resolve_links();
    if (in.failed()) return in.error();
    out = std::move(fresh);
    return std::nullopt;
}

std::optional<file_error> write_project(const wide_string& path, const project& in) {
    pugi::xml_document document;
    element_writer writer(folder_of_file(path), nearness::below);
    writer.write_project(start(document, "project"), in);
    return save(path, document, writer);
}

std::optional<file_error> write_scene(const wide_string& path, const scene& in) {
    pugi::xml_document document;
    element_writer writer(folder_of_file(path), nearness::beside);
    pugi::xml_node root = start(document, "scene_file");
    root.append_attribute("kind") = kind_text(in.kind);
    writer.write_scene(root.append_child("scene"), in);
    return save(path, document, writer);
}

std::optional<file_error> write_layer(const wide_string& path, const layer& in) {
    pugi::xml_document document;
    element_writer writer(folder_of_file(path), nearness::beside);
    pugi::xml_node root = start(document, "layer_file");
    root.append_attribute("kind") = kind_text(in.kind);
    writer.write_layer(root.append_child("layer"), in);
    return save(path, document, writer);
}

} // namespace vestra::files
