// Reads and writes archives with libarchive. It takes the encoding of names from the locale, so each call
// runs in a UTF-8 locale that is set only for this thread.
#include "apps/vestra_resave/archive/archive_file.h"

#include <archive.h>
#include <archive_entry.h>
#include <locale.h>

#include <algorithm>

#include "platform/text.h"
#include "platform/volumes.h"

namespace vestra::command {

using platform::outcome;

namespace {

class names_in_utf8 {
public:
    names_in_utf8() : before_(::uselocale(own())) {}
    ~names_in_utf8() { ::uselocale(before_); }
    names_in_utf8(const names_in_utf8&) = delete;
    names_in_utf8& operator=(const names_in_utf8&) = delete;

private:
    static locale_t own() {
        static const locale_t utf8 = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return utf8;
    }

    const locale_t before_;
};

constexpr size_t block = 256 * 1024;
constexpr int64_t second = 1'000'000'000;

struct freed {
    void operator()(struct archive* all) const { ::archive_free(all); }
    void operator()(struct archive_entry* one) const { ::archive_entry_free(one); }
};

class written_archive final : public archive_writer {
public:
    written_archive(archive_format format, platform::file& to) : to_(to), all_(::archive_write_new()) {
        const names_in_utf8 scope;
        struct archive* const all = all_.get();
        if (format == archive_format::zip) {
            check(::archive_write_set_format_zip(all));
            check(::archive_write_set_options(all, "hdrcharset=UTF-8"));
        } else {
            check(::archive_write_set_format_pax(all));
            check(::archive_write_add_filter_zstd(all));
        }
        check(::archive_write_set_bytes_per_block(all, block));
        check(::archive_write_set_bytes_in_last_block(all, 1)); // no zeros at the end
        check(::archive_write_open2(all, this, nullptr, &take, nullptr, nullptr));
    }

    ~written_archive() override {
        const names_in_utf8 scope;
        is_dropped_ = !is_finished_; // the library still ends the archive, but nothing more is written
        ::archive_write_close(all_.get());
    }

    outcome add(const packed_entry& entry) override {
        const names_in_utf8 scope;
        const std::unique_ptr<struct archive_entry, freed> made(::archive_entry_new());
        struct archive_entry* const one = made.get();
        const bool is_folder = entry.kind == packed_entry::type::folder;
        ::archive_entry_set_pathname_utf8(one, entry.name.c_str());
        ::archive_entry_set_filetype(one, is_folder ? AE_IFDIR : AE_IFREG);
        ::archive_entry_set_perm(one, is_folder ? 0755 : 0644);
        ::archive_entry_set_size(one, is_folder ? 0 : static_cast<int64_t>(entry.bytes));
        const int64_t rest = (entry.modified % second + second) % second; // also before 1970
        if (entry.modified != 0)
            ::archive_entry_set_mtime(one, (entry.modified - rest) / second, static_cast<long>(rest));
        if (failed_) check(::archive_write_header(all_.get(), one));
        return failed_;
    }

    outcome write(const void* bytes, size_t length) override {
        const names_in_utf8 scope;
        if (!failed_ || length == 0) return failed_;
        const la_ssize_t taken = ::archive_write_data(all_.get(), bytes, length);
        check(taken == static_cast<la_ssize_t>(length) ? ARCHIVE_OK : ARCHIVE_FATAL);
        return failed_;
    }

    outcome finish() override {
        const names_in_utf8 scope;
        is_finished_ = true;
        if (failed_) check(::archive_write_close(all_.get()));
        return failed_;
    }

private:
    // Called by the library with the bytes to write. Always reports success to the library, which would leak
    // memory after a failure; `failed_` has the failure.
    static la_ssize_t take(struct archive*, void* self, const void* bytes, size_t length) {
        written_archive& own = *static_cast<written_archive*>(self);
        if (own.failed_ && !own.is_dropped_) own.failed_ = own.to_.write(bytes, length);
        return static_cast<la_ssize_t>(length);
    }

    // A warning also counts as a failure: it means that the archive would lack a name or a time.
    void check(int result) {
        if (result == ARCHIVE_OK || !failed_) return;
        const int code = ::archive_errno(all_.get());
        failed_ = code > 0 ? outcome::native(static_cast<uint32_t>(code))
                           : outcome::because(u"the archive cannot have such an entry");
    }

    platform::file& to_;
    outcome failed_; // success as long as nothing failed
    bool is_finished_ = false, is_dropped_ = false;
    const std::unique_ptr<struct archive, freed> all_;
};

class read_archive final : public archive_reader {
public:
    explicit read_archive(const wide_string& path) : all_(::archive_read_new()) {
        const names_in_utf8 scope;
        struct archive* const all = all_.get();
        ::archive_read_support_format_zip_seekable(all);
        ::archive_read_support_format_tar(all);
        ::archive_read_support_filter_zstd(all);
        opened_ = ::archive_read_open_filename(all, platform::native_path(path).c_str(), block) == ARCHIVE_OK;
    }

    bool is_open() const { return opened_; }

    step next(packed_entry& entry) override {
        const names_in_utf8 scope;
        struct archive_entry* one = nullptr;
        const int result = ::archive_read_next_header(all_.get(), &one);
        if (result == ARCHIVE_EOF) return step::end;
        if (result != ARCHIVE_OK && result != ARCHIVE_WARN) return step::damaged;
        // A name that cannot be converted to UTF-8 keeps its bytes, which read_entry reports as invalid.
        const char* name = ::archive_entry_pathname_utf8(one);
        if (name == nullptr) name = ::archive_entry_pathname(one);
        entry = {.name = name != nullptr ? name : ""};
        const auto type = ::archive_entry_filetype(one);
        const bool is_link = ::archive_entry_hardlink(one) != nullptr;
        entry.kind = is_link            ? packed_entry::type::other
                     : type == AE_IFREG ? packed_entry::type::file
                     : type == AE_IFDIR ? packed_entry::type::folder
                                        : packed_entry::type::other;
        entry.bytes = static_cast<uint64_t>(::archive_entry_size(one));
        entry.is_encrypted = ::archive_entry_is_encrypted(one) != 0;
        if (::archive_entry_mtime_is_set(one) != 0)
            entry.modified = time_of(::archive_entry_mtime(one), ::archive_entry_mtime_nsec(one));
        return step::entry;
    }

    bool read(void* buffer, size_t length, size_t& count) override {
        const names_in_utf8 scope;
        for (count = 0; count < length;) {
            const la_ssize_t taken =
                ::archive_read_data(all_.get(), static_cast<char*>(buffer) + count, length - count);
            if (taken < 0) return false;
            if (taken == 0) break;
            count += static_cast<size_t>(taken);
        }
        return true;
    }

    bool is_zip() override {
        return (::archive_format(all_.get()) & ARCHIVE_FORMAT_BASE_MASK) == ARCHIVE_FORMAT_ZIP;
    }

    uint64_t bytes_taken() override {
        return static_cast<uint64_t>(std::max<int64_t>(0, ::archive_filter_bytes(all_.get(), -1)));
    }

    wide_string reason() override {
        const char* text = ::archive_error_string(all_.get());
        return text != nullptr ? platform::from_utf8(text) : u"the archive is damaged";
    }

private:
    // An archive can contain any number. One that is not a valid time counts as unknown.
    static int64_t time_of(int64_t seconds, int64_t rest) {
        constexpr int64_t most = INT64_MAX / second - 1;
        const bool is_time = seconds > -most && seconds < most && rest >= 0 && rest < second;
        return is_time ? seconds * second + rest : 0;
    }

    const std::unique_ptr<struct archive, freed> all_;
    bool opened_ = false;
};

} // namespace

bool has_archives() { return true; }

std::unique_ptr<archive_writer> archive_writer::begin(archive_format format, platform::file& to) {
    return std::make_unique<written_archive>(format, to);
}

std::unique_ptr<archive_reader> archive_reader::open(const wide_string& path, wide_string& reason) {
    auto opened = std::make_unique<read_archive>(path);
    if (opened->is_open()) return opened;
    reason = opened->reason();
    return nullptr;
}

} // namespace vestra::command
