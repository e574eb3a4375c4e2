#include "navora/options.h"

#include "navora/scripted_input.h"

#include <algorithm>

namespace navora {

const char* const helpText = R"(Usage: navora [OPTIONS] [FOLDER]

Shows FOLDER, or the sample content, on a screen of 1280 x 720.

  --keys NAMES       press these keys first, one a frame: a list like "down,down,a" of up, down, left,
                     right, a, b, x, y, start, select, menu, l, r and f1 to f12
  --shot FILE.png    after the keys, write a picture of the screen and end; needs no display. The name
                     shot among the keys writes one on the way, into FILE-1.png, FILE-2.png and so on.
                     FILE.bmp is larger, and written in a third of the time
  --rotate           as on a display that is mounted on its side
  --theme DIR        take skin pictures from there in this run, whatever the settings say
  --lang FILE        the language file of this run, such as ch.lang, whatever the settings say
  --device-root DIR  a folder that stands for the device's root
  --device-panel     show from the start what the function keys change on the device, as F1 does
  --version          print the version
  --help             print this text

Keys: the arrows move, SPACE is A, left CTRL is B, left SHIFT and ALT are X and Y, RETURN is start,
right CTRL select, ESC the menu, TAB and BACKSPACE the shoulders. X on a game opens a menu: favourite, details
and so on. The right shoulder on the home page opens the search. With a folder for the device's root, F1 shows
what the other function keys change on it.

The launcher opens where it was left, save with --keys: then it opens on its first page. What is left behind
by a run with --shot is not kept.

Settings, favourites and the games played of late are kept on the device, in /mnt/UDISK. On a machine that has
no such folder, navora/device below XDG_DATA_HOME or ~/.local/share stands for the device's root, unless
--device-root or the environment variable KESTRO_DEVICE_ROOT names another folder.

The program that a file is started with is named in a navora.json: in mnt/UDISK/navora below that root, in
navora below XDG_CONFIG_HOME or ~/.config, or in the one that comes with the launcher.

The font, the skin and the sample content are in the folder of the environment variable NAVORA_HOME, if it
is set, or where the installation or the build has put them.
)";

static std::vector<std::string> splitKeys(const std::string& list) {
    std::vector<std::string> names;
    if (list.empty())
        return names;
    for (size_t begin = 0, end = 0; end != std::string::npos; begin = end + 1) {
        end = list.find(',', begin);
        names.push_back(list.substr(begin, end == std::string::npos ? end : end - begin));
        if (!isKeyName(names.back()))
            throw UsageError("--keys: there is no key '" + names.back() + "'");
    }
    return names;
}

namespace {

struct Option {
    const char* name;
    bool takesValue;
    void (*set)(Options& options, const std::string& value);
};

} // namespace

static constexpr Option sOptions[] = {
    {"--keys", true,
     [](Options& o, const std::string& value) {
         o.keys = splitKeys(value);
         o.keysGiven = true;
     }},
    {"--shot", true, [](Options& o, const std::string& value) { o.shot = value; }},
    {"--theme", true, [](Options& o, const std::string& value) { o.theme = value; }},
    {"--lang", true, [](Options& o, const std::string& value) { o.language = value; }},
    {"--device-root", true, [](Options& o, const std::string& value) { o.deviceRoot = value; }},
    {"--rotate", false, [](Options& o, const std::string&) { o.rotate = true; }},
    {"--device-panel", false, [](Options& o, const std::string&) { o.devicePanel = true; }},
    {"--version", false, [](Options& o, const std::string&) { o.version = true; }},
    {"--help", false, [](Options& o, const std::string&) { o.help = true; }},
};

static const Option& findOption(const std::string& name) {
    for (const Option& option : sOptions)
        if (name == option.name)
            return option;
    throw UsageError("unknown option '" + name + "'");
}

static void setFolder(Options& options, const std::string& folder) {
    if (folder.empty())
        throw UsageError("the name of FOLDER is empty");
    if (!options.folder.empty())
        throw UsageError("only one FOLDER can be shown, not also '" + folder + "'");
    options.folder = folder;
}

Options parseOptions(int argc, char** argv) {
    Options options;
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    bool optionsEnded = false;
    for (auto at = arguments.begin(); at != arguments.end(); ++at) {
        if (optionsEnded || at->empty() || at->front() != '-') {
            setFolder(options, *at);
        } else if (*at == "--") {
            optionsEnded = true;
        } else {
            const Option& option = findOption(*at);
            if (option.takesValue && (++at == arguments.end() || at->rfind("--", 0) == 0))
                throw UsageError(std::string(option.name) + " needs a value after it");
            option.set(options, option.takesValue ? *at : "");
        }
    }
    const auto& keys = options.keys;
    if (options.shot.empty() && std::find(keys.begin(), keys.end(), pictureKey) != keys.end())
        throw UsageError("--keys: 'shot' needs --shot");
    return options;
}

} // namespace navora
