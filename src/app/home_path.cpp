#include "app/home_path.h"

namespace app {
namespace {

namespace fs = std::filesystem;

fs::path first_given(const std::string& option, const char* environment, const char* fallback) {
    fs::path path = fallback;
    if (!option.empty()) {
        path = option;
    } else if (environment != nullptr && *environment != '\0') {
        path = environment;
    }
    path = fs::absolute(path).lexically_normal();
    return path.has_filename() ? path : path.parent_path();
}

}  // namespace

fs::path home_path(const std::string& option, const char* environment) {
    return first_given(option, environment, ZYN_DEFAULT_HOME);
}

fs::path data_path(const char* environment) {
    return first_given({}, environment, ZYN_DATA_FOLDER);
}

fs::path unit_path(const fs::path& home, const std::string& unit) {
    return home.parent_path() / "units" / unit;
}

fs::path control_socket_path(const fs::path& home, HomeProgram program) {
    return home / (program == HomeProgram::Daemon ? "control.sock" : "xap.sock");
}

}  // namespace app
