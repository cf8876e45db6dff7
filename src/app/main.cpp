#include <memory>

#include "app/command_line.h"
#include "plugin/hspi.h"

int main(int argc, char** argv) {
    return app::run_command_line(argc, argv, [](const host::Platform& platform) {
        return std::make_unique<plugin::hspi>(platform);
    });
}
