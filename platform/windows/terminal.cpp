// The terminal on Windows: a console takes and gives UTF-16, while a file or a pipe carries UTF-8.

#include "platform/terminal.h"

#include <windows.h>
// Must follow windows.h.
#include <shellapi.h>

#include <atomic>
#include <memory>

#include "platform/text.h"
#include "platform/windows/paths.h"

namespace vs::project_resave::platform {

namespace {

// The operating system calls the handler on a separate thread.
std::atomic<bool> interrupt_seen{false}, was_interrupted{false}, waits_for_line{false};

UINT code_page_before = 0;

BOOL WINAPI note_interrupt(DWORD kind) {
    if (kind != CTRL_C_EVENT) return FALSE;
    if (was_interrupted.exchange(true) && !waits_for_line)
        return FALSE; // the operating system ends the program
    interrupt_seen = true;
    return TRUE;
}

bool is_console(DWORD stream) {
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(stream), &mode) != 0;
}

// To a file or a pipe the bytes are written unchanged.
void write_bytes(std::string_view text) {
    DWORD written = 0;
    ::WriteFile(::GetStdHandle(STD_ERROR_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written,
                nullptr);
}

// Reads one character at a time through `read`, up to the end of the line.
template <class character, class read_call>
line_result take_line(read_call read, std::basic_string<character>& line) {
    for (;;) {
        character next = 0;
        DWORD count = 0;
        const BOOL done = read(::GetStdHandle(STD_INPUT_HANDLE), &next, 1, &count, nullptr);
        // Ctrl-C ends the wait for a line with this error, sometimes before the handler has run.
        if (interrupt_seen || (done == 0 && ::GetLastError() == ERROR_OPERATION_ABORTED))
            return line_result::interrupted;
        const bool ended = done == 0 || count == 0;
        if (ended && line.empty()) return line_result::ended;
        if (ended || next == '\n') return line_result::read;
        if (next != '\r') line += next;
    }
}

} // namespace

std::vector<std::string> program_arguments(int, char**) {
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> words(
        ::CommandLineToArgvW(::GetCommandLineW(), &count), &::LocalFree);
    std::vector<std::string> arguments;
    for (int i = 1; words && i < count; ++i) arguments.push_back(to_utf8(text16(words.get()[i])));
    return arguments;
}

void prepare_standard_streams() {} // on Windows a failed write never ends the program

bool termination_requested() { return false; }

int stop_status() { return 130; }

process_terminal::process_terminal() {
    interrupt_seen = was_interrupted = false;
    code_page_before = ::GetConsoleOutputCP();
    ::SetConsoleOutputCP(CP_UTF8); // for the results that the program writes to the standard output itself
    ::SetConsoleCtrlHandler(&note_interrupt, TRUE);
    const HANDLE screen = ::GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    if (::GetConsoleMode(screen, &mode) != 0)
        ::SetConsoleMode(screen, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

process_terminal::~process_terminal() {
    ::SetConsoleOutputCP(code_page_before);
    ::SetConsoleCtrlHandler(&note_interrupt, FALSE);
}

bool process_terminal::shows() { return is_console(STD_ERROR_HANDLE); }

bool process_terminal::asks() { return shows() && is_console(STD_INPUT_HANDLE); }

unsigned process_terminal::width() {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (::GetConsoleScreenBufferInfo(::GetStdHandle(STD_ERROR_HANDLE), &info) == 0) return 80;
    return static_cast<unsigned>(info.srWindow.Right - info.srWindow.Left + 1);
}

void process_terminal::write(std::string_view text) {
    if (!shows()) {
        write_bytes(text);
        return;
    }
    const wide_string wide = from_utf8(text);
    DWORD written = 0;
    ::WriteConsoleW(::GetStdHandle(STD_ERROR_HANDLE), wide.data(), static_cast<DWORD>(wide.size()), &written,
                    nullptr);
}

// A file or a pipe delivers UTF-8 bytes, a keyboard UTF-16.
line_result process_terminal::read_line(std::string& line) {
    line.clear();
    waits_for_line = true;
    line_result result = line_result::ended;
    if (is_console(STD_INPUT_HANDLE)) {
        wide_string text;
        result = take_line<char16_t>(&::ReadConsoleW, text);
        line = to_utf8(text);
    } else {
        result = take_line<char>(&::ReadFile, line);
    }
    waits_for_line = false;
    if (result == line_result::read) was_interrupted = false;
    return result;
}

bool process_terminal::interrupted() { return interrupt_seen; }

void process_terminal::forget_interrupt() { interrupt_seen = false; }

} // namespace vs::project_resave::platform
