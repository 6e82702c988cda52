#include "tests/support/command_process.h"

#include <algorithm>
#include <cstdlib>

#include "platform/text.h"

namespace vs::project_resave {

// Drives need not be mapped, because they exist.
std::string command_line(const std::string& arguments, const command_streams& streams) {
    const std::string program = std::filesystem::path(VS_COMMAND).make_preferred().string();
    std::string line = "set LC_ALL=C&& '" + program + "' " + arguments;
    line += " < " + (streams.in.empty() ? "NUL" : "'" + streams.in.string() + "'") + " > '" +
            streams.out.string() + "'";
    line += " 2>" + (streams.err.empty() ? "&1" : "'" + streams.err.string() + "'");
    std::ranges::replace(line, '\'', '"');
    return line;
}

int run_line(const std::string& line) {
    const std::wstring wide = std::filesystem::path(platform::from_utf8(line)).wstring();
    constexpr int not_started = 9009; // the exit status of the shell, which no command of this project uses
    int code = not_started;
    for (int turn = 0; turn < 3 && code == not_started;
         ++turn) // a busy Wine fails to start a process at times
        code = ::_wsystem(wide.c_str());
    return code;
}

} // namespace vs::project_resave
