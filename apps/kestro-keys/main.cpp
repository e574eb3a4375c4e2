#include "hostkit/key_table.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <optional>
#include <string>

using hostkit::KeyTable;

static const char* const sHelp = R"(Usage: kestro-keys get INDEX
       kestro-keys set INDEX VALUE
       kestro-keys watch INDEX
       kestro-keys name

Reads and writes the table of integer settings that a launcher shares with other programs.

  get     print the value at INDEX
  set     store VALUE at INDEX
  watch   print the value, and again whenever it changes, until interrupted
  name    print the name of the table's shared-memory object, a file in /dev/shm

INDEX is a number from 0 to 63; some of them:

   0 volume          5 music volume    10 LED level         15 hotspot
   1 brightness      6 net play        11 menu style 2      16 Bluetooth
   2 key mapping     7 processor       12 rumble            18 on-screen shortcut
   3 mute            8 LED             13 dim time          19 A and B swapped
                     9 menu style 1    14 Wi-Fi

The table belongs to the user, and, where the environment variable KESTRO_DEVICE_ROOT names a folder that
stands for a device, to that device.

  --help      print this text
  --version   print the version
)";

enum ExitCode { exitDone = 0, exitFailed = 1, exitUsage = 2 };

static std::optional<int> number(const char* text, long lowest, long highest) {
    char* end = nullptr;
    errno = 0;
    const long value = strtol(text, &end, 10);
    if (end == text || *end || errno != 0 || value < lowest || value > highest)
        return {};
    return static_cast<int>(value);
}

static int usageError(const std::string& problem) {
    fprintf(stderr, "kestro-keys: %s; kestro-keys --help tells more\n", problem.c_str());
    return exitUsage;
}

static ExitCode print(const std::string& text) {
    if (fputs(text.c_str(), stdout) >= 0 && fflush(stdout) == 0)
        return exitDone;
    fprintf(stderr, "kestro-keys: cannot write: %s\n", strerror(errno));
    return exitFailed;
}

static ExitCode print(int value) {
    return print(std::to_string(value) + "\n");
}

/// Until it cannot write any more.
static ExitCode watch(KeyTable& table, int index) {
    constexpr timespec pause{0, 20'000'000};
    int value = table.get(index);
    while (print(value) == exitDone)
        for (const int shown = value; value == shown; value = table.get(index))
            nanosleep(&pause, nullptr);
    return exitFailed;
}

static int run(const std::string& command, int index, int value) {
    KeyTable table;
    if (table.open() == KeyTable::State::notShared) {
        fprintf(stderr, "kestro-keys: cannot open the table: %s\n", strerror(table.error()));
        return exitFailed;
    }
    if (command == "get")
        return print(table.get(index));
    if (command == "watch")
        return watch(table, index);
    table.set(index, value);
    return exitDone;
}

int main(int argc, char** argv) {
    const std::string command = argc > 1 ? argv[1] : "";
    if (command == "--help")
        return print(sHelp);
    if (command == "--version")
        return print("kestro-keys " KESTRO_KEYS_VERSION "\n");
    if (command == "name")
        return argc == 2 ? print(hostkit::keyTableName() + "\n") : usageError("name needs nothing more");
    if (command != "get" && command != "set" && command != "watch")
        return usageError(command.empty() ? "no command" : "unknown command '" + command + "'");
    const int wanted = command == "set" ? 4 : 3;
    if (argc != wanted)
        return usageError(command + (wanted == 4 ? " needs an index and a value" : " needs an index"));
    const std::optional<int> index = number(argv[2], 0, KeyTable::size - 1);
    if (!index)
        return usageError("'" + std::string(argv[2]) + "' is not an index from 0 to 63");
    const std::optional<int> value = number(argv[wanted - 1], INT32_MIN, INT32_MAX);
    if (!value)
        return usageError("'" + std::string(argv[3]) + "' is not a whole number of 32 bits");
    return run(command, *index, *value);
}
