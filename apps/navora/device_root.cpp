#include "navora/device_root.h"

#include "navora/state_folder.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

namespace navora {

static constexpr const char* sVariable = "KESTRO_DEVICE_ROOT";
static constexpr const char* sDisk = "/mnt/UDISK";

static void useUsersOwn() {
    const std::string data = userDataFolder();
    if (data.empty())
        return;
    const std::string root = data + "/device";
    std::error_code failure;
    fs::create_directories(root + sDisk, failure);
    if (failure)
        fprintf(stderr, "navora: cannot make the folder '%s%s': %s; settings are not kept\n", root.c_str(),
                sDisk, failure.message().c_str());
    else
        setenv(sVariable, root.c_str(), 1);
}

std::string useDeviceRoot(const std::string& given) {
    if (!given.empty())
        setenv(sVariable, given.c_str(), 1);
    const char* const named = secure_getenv(sVariable); // as the library does
    if (named && *named)
        return named;
    std::error_code ignored;
    if (!fs::is_directory(sDisk, ignored))
        useUsersOwn();
    return "";
}

} // namespace navora
