#include "tests/support/command_process.h"

#include <sys/wait.h>

#include <cstdlib>

#include "platform/text.h"
#include "platform/volumes.h"

namespace vs::project_resave {

std::string command_line(const std::string& arguments, const command_streams& streams) {
    std::string line = "exec env LC_ALL=C '" VS_COMMAND "' " + arguments;
    for (const std::string drive : {"C", "D", "N"})
        line +=
            " --drive " + drive + "=" + platform::native_path(platform::from_utf8(drive + ":\\")).string();
    line += " < " + (streams.in.empty() ? "/dev/null" : streams.in.string()) + " > " + streams.out.string();
    return line + " 2>" + (streams.err.empty() ? "&1" : streams.err.string());
}

int run_line(const std::string& line) {
    const int status = std::system(line.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace vs::project_resave
