#pragma once

#include "menu/dir_browser.h"
#include "support/kestro_test.h"

#include <functional>
#include <string>
#include <vector>

/// An action that only carries a sort group.
class GroupAction : public Action {
public:
    explicit GroupAction(uint32_t group) { sortGroup = group; }
    int dowork(void*) override { return 0; }
};

/// One call of the factory.
struct FactoryCall {
    std::string name;
    std::string path;
    int kind;
};

/// A test with folders, and a browser whose factory makes a row with the entry's name for each entry, as
/// long as the test asks for nothing else.
class DirTest : public KestroTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// A browser with the factory below.
    DirBrowser browser{nullptr, makeRow};

    /// Answers the factory's calls, if it is set.
    static std::function<TextMenuItem*(const char* name, const char* path, int kind)> onEntry;
    static std::vector<FactoryCall> calls;

    static TextMenuItem* makeRow(const char* name, const char* path, int kind);
    static TextMenuItem* plainRow(const char* name) {
        return new TextMenuItem(name, nullptr, nullptr, false);
    }

    /// Makes files, each with its folders; a path that ends in "/" is a folder.
    static void make(const std::vector<std::string>& paths);

    /// The labels of a list of rows.
    static std::vector<std::string> labels(const std::vector<void*>* items);

    /// The number of file descriptors that are open.
    static int openDescriptors();
};
