#include "navora/json_file.h"

#include "navora/state_folder.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace navora {

using FilePtr = std::unique_ptr<FILE, int (*)(FILE*)>;

std::string stateFile(const std::string& name) {
    const std::string folder = stateFolder();
    return folder.empty() ? "" : folder + "/" + name;
}

/// The content of an open file, one byte more than is allowed at most.
static std::string contentOf(FILE* file, size_t allowed) {
    std::string text;
    char piece[16384];
    size_t count = 1;
    while (count > 0 && text.size() <= allowed) {
        count = fread(piece, 1, std::min(sizeof piece, allowed + 1 - text.size()), file);
        text.append(piece, count);
    }
    return text;
}

static void complain(const std::string& path, const char* problem) {
    fprintf(stderr, "navora: %s: %s\n", path.c_str(), problem);
}

static void complainOfPlace(const std::string& path, const std::string& text, size_t at) {
    const auto here = text.begin() + static_cast<std::ptrdiff_t>(std::min(at, text.size()));
    const auto line = 1 + std::count(text.begin(), here, '\n');
    const auto lineStart = std::find(std::make_reverse_iterator(here), text.rend(), '\n').base();
    fprintf(stderr, "navora: %s: not JSON at line %td, column %td; it is not used\n", path.c_str(),
            static_cast<std::ptrdiff_t>(line), here - lineStart + 1);
}

static JsonReading unreadable(const std::string& path) {
    if (errno == ENOENT || errno == ENOTDIR)
        return JsonReading::missing;
    complain(path, strerror(errno));
    return JsonReading::unreadable;
}

static JsonReading readText(const std::string& path, std::string& text) {
    static constexpr size_t longest = 8'000'000;
    const FilePtr file(fopen(path.c_str(), "r"), fclose);
    if (!file)
        return unreadable(path);
    text = contentOf(file.get(), longest);
    if (ferror(file.get()))
        return unreadable(path);
    if (text.size() <= longest)
        return JsonReading::done;
    complain(path, "too long; it is not used");
    return JsonReading::broken;
}

JsonPtr readJson(const std::string& path, JsonReading& reading) {
    std::string text;
    reading = readText(path, text);
    if (reading != JsonReading::done)
        return nullptr;
    const char* end = text.c_str();
    JsonPtr root(cJSON_ParseWithOpts(text.c_str(), &end, 1));
    if (!root) {
        complainOfPlace(path, text, static_cast<size_t>(end - text.c_str()));
        reading = JsonReading::broken;
    }
    return root;
}

bool writeJson(const std::string& path, const cJSON* root) {
    const std::unique_ptr<char, void (*)(void*)> text(cJSON_Print(root), cJSON_free);
    if (text && writeDurably(path, text.get()))
        return true;
    complain(path, (std::string("cannot be written: ") + strerror(errno)).c_str());
    return false;
}

} // namespace navora
