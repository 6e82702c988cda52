#include <exception>

#include "apps/vestra_resave/command_line.h"

int main(int argc, char** argv) try {
    using namespace vestra::command;
    command_line line;
    if (const auto end = parse(argc, argv, line)) return *end;
    if (const auto reason = apply(line.options)) {
        complain(*reason);
        return wrong_use;
    }
    return line.run();
} catch (const vestra::command::bundle_not_loaded& failure) {
    vestra::command::complain(failure.what());
    return vestra::command::wrong_use;
} catch (const std::exception& failure) { // out of memory, above all
    vestra::command::complain(failure.what());
    return vestra::command::not_saved;
}
