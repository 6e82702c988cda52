// Linux only: drives are folders there, and pipes, links and locks are created with its own calls.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "platform/posix/descriptor.h"
#include "platform/posix/volumes.h"
#include "platform/system.h"
#include "platform/terminal.h"
#include "platform/text.h"
#include "tests/support/temporary_folder.h"

namespace vs::project_resave::platform {
namespace {

namespace fs = std::filesystem;

class posix_files : public testing::Test {
protected:
    ~posix_files() override { mapped_volumes().reset(); }

    temporary_folder folder;
    system& files = current_system();
};

TEST_F(posix_files, a_native_path_gets_the_drive_with_the_longest_folder) {
    const std::string root = folder.native().string();
    folder.write(u"data\\gis\\x.shp");
    std::string message;
    EXPECT_TRUE(add_drive("c=" + root + "/data", message));
    EXPECT_TRUE(add_drive("N=" + root + "/data/gis/", message));
    for (const std::string wrong : {"C", "C=", "=/", "1=/", "CD=/", "C=/none", "C=/dev/null"})
        EXPECT_TRUE(!add_drive(wrong, message = "") && message.find(wrong) != std::string::npos) << wrong;
    EXPECT_EQ(message, "not a drive: \"C=/dev/null\": Not a directory");
    EXPECT_TRUE(files.status_of(folder.path(u"none")).reason.is(failure::missing));
    EXPECT_TRUE(files.status_of(folder.path(u"data")).reason);
    EXPECT_EQ(files.status_of(folder.path(wide_string(300, u'x'))).reason.text(), u"File name too long");
    EXPECT_EQ(files.status_of(u"Z:\\dev\\null").reason.text(), u"not a regular file");
    const std::pair<std::string, wide_string> cases[] = {
        {root + "/data/gis/x.shp", u"N:\\x.shp"},
        {root + "/data/gis", u"N:\\"},
        {root + "/data/gis2/x", u"C:\\gis2\\x"},
        {root + "/data//./gis/../y", u"C:\\y"},
        {"/", u"Z:\\"},
        {"C:\\any\\..\\x", u"C:\\any\\..\\x"},
    };
    for (auto [native, drive] : cases) {
        std::ranges::replace(drive, u'/', u'\\');
        EXPECT_EQ(drive_path(native), drive) << native;
    }
    EXPECT_EQ(drive_path("x/../y"), drive_path(fs::current_path().string()) + u"\\y");

    EXPECT_EQ(native_path(u"n:/X.SHP"), root + "/data/gis/x.shp");
    EXPECT_EQ(native_path(u"C:\\GIS\\New\\Sub\\..\\a.txt"), root + "/data/gis/New/a.txt");
    EXPECT_EQ(native_path(u"C:\\..\\..\\gis"), root + "/data/gis");
    for (const wide_view absent : {u"Q:\\x", u"\\\\server\\share\\x", u"//server/share", u""})
        EXPECT_TRUE(native_path(wide_string(absent)).empty());

    // The drives of the environment.
    const std::string value = "bad;C=" + root + ";;D=/no/such/folder";
    ::setenv("VESTRA_DRIVES", value.c_str(), 1);
    mapped_volumes().reset();
    ::unsetenv("VESTRA_DRIVES");
    EXPECT_EQ(native_path(u"C:\\x"), folder.native() / "x");
    EXPECT_TRUE(native_path(u"D:\\x").empty());
}

TEST_F(posix_files, the_exact_spelling_wins_and_changes_by_others_are_seen) {
    folder.write(u"Б.txt", "upper");
    folder.write(u"б.TXT", "tail");
    EXPECT_EQ(folder.read(u"Б.txt"), "upper");
    EXPECT_EQ(folder.read(u"Б.TXT"), "upper"); // the first in byte order
    fs::remove(folder.native() / "Б.txt");
    EXPECT_EQ(folder.read(u"Б.TXT"), "tail");
    for (int i = 0; i < 50; ++i) {
        const wide_string name = u"File" + from_utf8(std::to_string(i));
        EXPECT_EQ(files.kind_of(folder.path(folded(name))), entry_kind::none);
        folder.write(name);
        EXPECT_EQ(files.kind_of(folder.path(folded(name))), entry_kind::file);
        fs::remove(folder.native() / name);
    }
    std::ofstream(folder.native() / "bad\xFFname") << "x";
    EXPECT_EQ(files.file_size(folder.path(u"BAD\xFFFDname")), 1U);
}

TEST_F(posix_files, a_recreated_folder_is_not_mistaken_for_the_old_one) {
    const fs::path sub = folder.native() / "sub";
    const wide_string file = folder.write(u"sub\\file.txt", "old");
    EXPECT_EQ(files.file_size(file), 3U);
    fs::remove_all(sub); // by somebody else
    fs::create_directory(sub);
    std::ofstream(sub / "file.txt") << "newer";
    EXPECT_EQ(files.file_size(file), 5U);
    EXPECT_EQ(folder.read(u"sub\\FILE.txt"), "newer");

    ASSERT_TRUE(files.rename_over(folder.path(u"sub"), folder.path(u"before")));
    EXPECT_EQ(files.kind_of(file), entry_kind::none);
    ASSERT_TRUE(files.create_folder(folder.path(u"sub")));
    ASSERT_TRUE(files.copy_file(folder.path(u"before\\file.txt"), folder.path(u"sub\\copy.txt"), false));
    EXPECT_TRUE(fs::exists(sub / "copy.txt") && !fs::exists(folder.native() / "before" / "copy.txt"));

    ASSERT_TRUE(files.delete_file(folder.path(u"sub\\copy.txt")) && files.remove_folder(folder.path(u"sub")));
    EXPECT_EQ(files.kind_of(folder.path(u"sub")), entry_kind::none);
    EXPECT_EQ(folder_time(folder.path(u"sub")), fs::file_time_type::min());
    EXPECT_EQ(folder_time(folder.path(u"before")), fs::last_write_time(folder.native() / "before"));
}

// Counts how often the listing of a folder is opened by anyone.
class folder_watch {
public:
    explicit folder_watch(const std::filesystem::path& folder)
        : events_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        ::inotify_add_watch(events_.get(), folder.c_str(), IN_OPEN);
    }

    // Returns the count since the last call.
    int readings() const {
        int count = 0;
        alignas(inotify_event) char events[4096];
        for (ssize_t length; (length = ::read(events_.get(), events, sizeof(events))) > 0;)
            for (ssize_t at = 0; at < length;) {
                const auto* event = reinterpret_cast<const inotify_event*>(events + at);
                if ((event->mask & IN_ISDIR) != 0) ++count;
                at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
            }
        return count;
    }

private:
    descriptor events_;
};

TEST_F(posix_files, a_folder_being_filled_is_not_read_again_for_each_absent_name) {
    const wide_string source = folder.write(u"source.txt", "x");
    ASSERT_TRUE(files.create_folder(folder.path(u"target")));
    const folder_watch listing(folder.native() / "target");

    constexpr int count = 200;
    for (int i = 0; i < count; ++i) {
        const wide_string name = u"target\\Copy" + from_utf8(std::to_string(i));
        ASSERT_EQ(files.kind_of(folder.path(name)), entry_kind::none);
        ASSERT_TRUE(files.copy_file(source, folder.path(name), false));
        ASSERT_EQ(files.kind_of(folder.path(folded(name))), entry_kind::file);
        const wide_string kept = folder.path(name + u".Kept");
        ASSERT_TRUE(i % 2 == 0 ? files.delete_file(folder.path(name))
                               : files.rename_over(folder.path(name), kept));
        ASSERT_EQ(files.kind_of(folder.path(folded(name))), entry_kind::none);
        ASSERT_EQ(files.kind_of(folded(kept)) == entry_kind::file, i % 2 == 1);
    }
    const int readings = listing.readings();
    EXPECT_TRUE(readings > 0 && readings < 10) << readings;
}

TEST_F(posix_files, an_unreadable_or_special_source_is_refused_without_waiting) {
    const wide_string source = folder.write(u"secret.txt", "x");
    ASSERT_EQ(::mkfifo((folder.native() / "pipe").c_str(), 0600), 0);
    ASSERT_EQ(::chmod((folder.native() / "pipe").c_str(), 0666), 0);
    fs::create_symlink("nowhere", folder.native() / "broken");
    ASSERT_EQ(::chmod(folder.native().c_str(), 0777), 0);
    ASSERT_EQ(::chmod((folder.native() / "secret.txt").c_str(), 0), 0);
    const uid_t user = ::geteuid();
    ASSERT_EQ(::seteuid(user == 0 ? 65534 : user), 0); // to the superuser nothing is unreadable
    const std::pair<wide_view, wide_view> reasons[] = {{u"secret.txt", u"Permission denied"},
                                                       {u"pipe", u"not a regular file"},
                                                       {u"broken", u"No such file or directory"}};
    for (const auto& [name, reason] : reasons) {
        std::unique_ptr<file> opened;
        const wide_string path = folder.path(name);
        EXPECT_EQ(files.copy_file(path, folder.path(u"copy.txt"), false).text(), reason);
        EXPECT_EQ(files.open(path, access::read, disposition::open_existing, opened).text(), reason);
    }
    ASSERT_EQ(::seteuid(user), 0);
    EXPECT_EQ(entries_or_none(files, folder.path()).size(), 3U);
    EXPECT_TRUE(files.delete_file(folder.path(u"BROKEN")));
}

TEST_F(posix_files, links_are_followed_but_a_circle_of_them_ends) {
    folder.write(u"a\\x.txt");
    folder.write(u"b\\y.txt");
    fs::create_directory_symlink(folder.native(), folder.native() / "a" / "self");
    fs::create_directory_symlink(folder.native() / "b", folder.native() / "a" / "to_b");
    fs::create_directory_symlink(folder.native() / "a", folder.native() / "b" / "to_a");
    wide_string names;
    for (const tree_entry& entry : list_tree(files, folder.path(u"a")))
        names += entry.path.substr(folder.path(u"a").size()) + u' ';
    EXPECT_EQ(names, u"\\self \\to_b \\to_b\\to_a \\to_b\\y.txt \\x.txt ");
}

TEST_F(posix_files, a_file_that_another_program_holds_is_not_a_lost_one) {
    const wide_string path = folder.write(u"log.txt", "x");
    std::unique_ptr<file> opened;
    {
        const descriptor held(::open((folder.native() / "log.txt").c_str(), O_RDWR));
        ASSERT_EQ(::flock(held.get(), LOCK_EX), 0);
        for (const access wanted : {access::read, access::read_write})
            EXPECT_TRUE(files.open(path, wanted, disposition::open_existing, opened).is(failure::in_use));
        EXPECT_TRUE(
            files.open(path, access::read_write, disposition::create_always, opened).is(failure::in_use));
    }
    EXPECT_EQ(folder.read(u"log.txt"), "x");
    EXPECT_TRUE(files.open(path, access::read_write, disposition::open_existing, opened));
}

TEST(posix_terminal, a_second_ctrl_c_ends_the_program) {
    const pid_t child = ::fork();
    if (child == 0) {
        process_terminal screen;
        ::raise(SIGINT);
        if (!screen.interrupted()) ::_exit(1);
        ::raise(SIGINT);
        ::_exit(2);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 130) << status;
}

} // namespace
} // namespace vs::project_resave::platform
