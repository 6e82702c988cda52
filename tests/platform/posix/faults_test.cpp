// Linux only: a full disk, pipes, links, holes and locks are made by means of its own.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "platform/posix/descriptor.h"
#include "platform/system.h"
#include "tests/support/temporary_folder.h"

namespace vs::project_resave::platform {
namespace {

namespace fs = std::filesystem;

class faults : public testing::Test {
protected:
    temporary_folder folder;
    system& files = current_system();
};

TEST_F(faults, a_full_disk_leaves_no_part_of_a_copy) {
    const wide_string source = folder.write(u"big.bin", std::string(300'000, 'x'));
    folder.write(u"there.bin", "old");
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small{100'000, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    std::unique_ptr<file> log;
    EXPECT_TRUE(files.open(folder.path(u"log"), access::read_write, disposition::create_always, log));
    const std::string bytes(200'000, 'x');
    const outcome results[] = {files.copy_file(source, folder.path(u"copy.bin"), false),
                               files.copy_file(source, folder.path(u"there.bin"), true),
                               log->write(bytes.data(), bytes.size())};
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    for (const outcome& result : results) EXPECT_EQ(result.text(), u"File too large") << result.code();
    EXPECT_TRUE(files.delete_file(folder.path(u"log")));
    EXPECT_EQ(entries_or_none(files, folder.path()).size(), 2U);
    EXPECT_EQ(folder.read(u"there.bin"), "old");
    EXPECT_TRUE(files.copy_file(source, folder.path(u"copy.bin"), false));
}

TEST_F(faults, an_unreadable_or_special_source_is_refused_without_waiting) {
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

TEST_F(faults, a_folder_without_the_right_to_write_is_named_as_the_reason) {
    const wide_string there = folder.write(u"there.txt", "x");
    ASSERT_EQ(::chmod(folder.native().c_str(), 0555), 0);
    const uid_t user = ::geteuid();
    ASSERT_EQ(::seteuid(user == 0 ? 65534 : user), 0);
    std::unique_ptr<file> opened;
    const wide_string place = folder.path(u"new");
    const outcome results[] = {files.copy_file(there, place, false), files.create_folder(place),
                               files.delete_file(there), files.rename_over(there, place),
                               files.open(place, access::read_write, disposition::create_always, opened)};
    ASSERT_EQ(::seteuid(user), 0);
    ASSERT_EQ(::chmod(folder.native().c_str(), 0755), 0);
    for (const outcome& result : results) EXPECT_EQ(result.text(), u"Permission denied");
    EXPECT_EQ(outcome(failure::disk_full).text(), u"No space left on device");
    for (const wide_view path : {u"\\\\server\\share\\x", u"Q:\\x", u""})
        EXPECT_TRUE(files.delete_file(wide_string(path)).code() == 0) << "the reason is our own";
}

TEST_F(faults, links_are_followed_but_a_circle_of_them_ends) {
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

TEST_F(faults, a_file_that_another_program_holds_is_told_from_one_that_is_lost) {
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

} // namespace
} // namespace vs::project_resave::platform
