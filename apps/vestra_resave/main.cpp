// The entry point: parses the command line, runs the command and checks that all output was written.
#include <cerrno>
#include <cstdio>
#include <exception>
#include <iostream>
#include <streambuf>
#include <system_error>

#include "apps/vestra_resave/command_line.h"
#include "apps/vestra_resave/problems.h"
#include "apps/vestra_resave/words.h"
#include "platform/terminal.h"
#include "platform/text.h"

namespace {

using namespace vestra::command;
namespace platform = vs::project_resave::platform;

// Receives the output of std::cout and remembers why any of it could not be written. The stream itself only
// knows that something failed, but a full disk or a closed pipe must be reported with its reason.
class standard_output final : public std::streambuf {
public:
    standard_output() : before_(std::cout.rdbuf(this)) {}
    ~standard_output() override { std::cout.rdbuf(before_); }
    standard_output(const standard_output&) = delete;
    standard_output& operator=(const standard_output&) = delete;

    // Writes the remaining output. Returns 0, or the error number of the first failure if output was lost.
    int finish() {
        sync();
        return error_;
    }

private:
    std::streamsize xsputn(const char* text, std::streamsize length) override {
        // After a failure nothing more is written, so the output has no gap and the first reason is kept.
        if (error_ != 0) return 0;
        const std::size_t written = std::fwrite(text, 1, static_cast<std::size_t>(length), stdout);
        note(static_cast<std::streamsize>(written) == length);
        return static_cast<std::streamsize>(written);
    }
    int_type overflow(int_type next) override {
        const char one = traits_type::to_char_type(next);
        return xsputn(&one, 1) == 1 ? next : traits_type::eof();
    }
    int sync() override {
        if (error_ == 0) note(std::fflush(stdout) == 0);
        return error_ == 0 ? 0 : -1;
    }
    void note(bool succeeded) {
        // errno is 0 if the library failed without a call of the operating system.
        if (!succeeded) error_ = errno != 0 ? errno : EIO;
    }

    std::streambuf* before_;
    int error_ = 0;
};

int run(int argc, char** argv) {
    command_line line;
    speak({}); // the language until the options are parsed
    try {
        if (const auto end = parse(argc, argv, line)) return *end;
        if (const auto reason = apply(line.options)) return end_with(refused({}, *reason), line.options);
        return line.run();
    } catch (const bundle_not_loaded& failure) {
        return end_with({wrong_use, {{own_kind::not_loaded, {}, failure.path, {}, failure.reason}}},
                        line.options);
    } catch (const std::exception& failure) { // mainly out of memory
        const auto what = platform::from_utf8(failure.what());
        return end_with(
            {not_saved, {{name_of(vs::project_resave::fact_kind::exception_caught), {}, {}, {}, what}}},
            line.options);
    }
}

} // namespace

int main(int argc, char** argv) {
    platform::prepare_standard_streams();
    standard_output output;
    const int status = run(argc, argv);
    if (const int error = output.finish()) {
        complain(say("standard output could not be written: %1",
                     {say_known(std::generic_category().message(error))}));
        // A status that says more than lost output stays.
        if (status < wrong_use) return not_saved;
    }
    // Shells expect the status to say which signal ended a program.
    return status == stopped ? platform::stop_status() : status;
}
