#include "support/dir_test.h"
#include "support/entry_repeater.h"

#include <climits>
#include <dirent.h>
#include <filesystem>
#include <map>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

/// What entries are, as the folder tells it or as a look at each of them does.
class DirKindsTest : public DirTest {
protected:
    using Kinds = std::map<std::string, int>;

    /// The kinds of those entries of a folder that the factory was asked for.
    Kinds asked(const std::string& folder) {
        calls.clear();
        browser.LoadDir(folder.c_str(), nullptr);
        takeLog();
        Kinds kinds;
        for (const FactoryCall& call : calls) {
            EXPECT_EQ(call.path, folder + "/" + call.name);
            kinds[call.name] = call.kind;
        }
        EXPECT_EQ(kinds.size(), calls.size());
        return kinds;
    }

    /// The same by looking at every entry.
    static Kinds looked(const std::string& folder) {
        Kinds kinds;
        DIR* const dir = opendir(folder.c_str());
        while (const dirent* const entry = dir ? readdir(dir) : nullptr) {
            struct stat status {};
            const std::string name = entry->d_name;
            if (stat((folder + "/" + name).c_str(), &status) != 0)
                continue;
            if (S_ISDIR(status.st_mode) && name[0] != '.')
                kinds[name] = 102;
            else if (S_ISREG(status.st_mode))
                kinds[name] = 101;
        }
        if (dir)
            closedir(dir);
        return kinds;
    }

    /// Runs as a user who has only the rights that the files give.
    static void asNobody(const std::function<void()>& body) {
        const uid_t user = geteuid();
        if (user == 0) { // who may do everything
            chmod(".", 0755);
            ASSERT_EQ(seteuid(65534), 0);
        }
        body();
        ASSERT_EQ(seteuid(user), 0);
    }
};

TEST_F(DirKindsTest, RandomFoldersShowWhatALookAtEachEntryShows) {
    std::mt19937 random(5);
    for (int round = 0; round < 600; ++round) {
        const std::string folder = "r" + std::to_string(round);
        make({folder + "/"});
        for (size_t count = random() % 12; count > 0; --count) {
            const char* const dots[] = {"", "", ".", "..", "..."};
            const std::string path = folder + "/" + dots[random() % 5] + std::to_string(count);
            switch (random() % 6) {
            case 0:
                make({path + "/"});
                break;
            case 1:
                ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
                break;
            case 2: // to something beside it, to nothing, or to itself
                fs::create_symlink(std::to_string(random() % 12), path);
                break;
            case 3:
                fs::create_symlink("..", path);
                break;
            default:
                make({path});
            }
        }
        const Kinds wanted = looked(folder);
        ASSERT_EQ(asked(folder), wanted) << round;
        const UntypedEntries untyped;
        ASSERT_EQ(asked(folder), wanted) << round;
        fs::remove_all(folder);
    }
}

TEST_F(DirKindsTest, AFolderThatMayBeReadButNotSearchedShowsNothing) {
    make({"base/file", "base/dir/"});
    chmod("base", 0444);
    asNobody([this] {
        EXPECT_TRUE(looked("base").empty());
        EXPECT_TRUE(asked("base").empty());
    });
    chmod("base", 0755);
    EXPECT_EQ(asked("base").size(), 2u);
}

TEST_F(DirKindsTest, EntriesWhosePathsAreTooLongToLookAtAreLeftOut) {
    make({"base/12345", "base/1234567", "base/dir/"});
    size_t shown = 0;
    for (size_t length = PATH_MAX - 15; length < PATH_MAX; ++length) {
        const std::string folder = "." + std::string(length - 5, '/') + "base";
        const Kinds kinds = asked(folder);
        ASSERT_EQ(kinds, looked(folder)) << length;
        shown += kinds.size();
    }
    EXPECT_EQ(shown, 9u + 7 + 11) << "some fit, as the last byte is the zero";
}
