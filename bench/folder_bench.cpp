// Reading a folder into rows, and putting rows in order.

#include "bench/support/comparison.h"
#include "bench/support/scratch_folder.h"
#include "bench/support/titles.h"
#include "menu/dir_browser.h"
#include "menu/row_order.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/syscall.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr int fileKind = 101;
constexpr int dirKind = 102;

/// Rows that were made before, so that only the reading is measured: what a row costs is up to the host.
std::vector<TextMenuItem*> sReady;
size_t sNextReady = 0;

TextMenuItem* readyRow(const char*, const char*, int) {
    return sReady[sNextReady++];
}

TextMenuItem* newRow(const char* name, const char*, int) {
    return new TextMenuItem(name, nullptr, nullptr, false);
}

using Factory = TextMenuItem* (*)(const char* name, const char* path, int kind);

bool labelBefore(const TextMenuItem* a, const TextMenuItem* b) {
    return strcmp(a->labelText().c_str(), b->labelText().c_str()) < 0;
}

using Rows = std::vector<TextMenuItem*>;

void deleteAll(Rows& rows) {
    for (const TextMenuItem* row : rows)
        delete row;
    rows.clear();
}

std::vector<std::string> namesInOrder(const std::string& folder) {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    return names;
}

/// Makes a row for every entry, in the order of the folder. Those that were not taken go.
void makeReady(const std::vector<std::string>& names) {
    sReady.erase(sReady.begin(), sReady.begin() + static_cast<std::ptrdiff_t>(sNextReady));
    deleteAll(sReady);
    sNextReady = 0;
    for (const std::string& name : names)
        sReady.push_back(newRow(name.c_str(), nullptr, fileKind));
}

/// The same rows in the same order, with the standard library's means.
void readWithStandardLibrary(const std::string& folder, Factory factory, Rows& rows) {
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        const int kind = entry.is_directory() ? dirKind : entry.is_regular_file() ? fileKind : 0;
        if (kind == 0)
            continue;
        if (rows.size() >= 20000)
            break;
        rows.push_back(factory(entry.path().filename().c_str(), entry.path().c_str(), kind));
    }
    std::sort(rows.begin(), rows.end(), labelBefore);
}

/// The entries as the kernel gives them, and nothing else.
void readEntries(const std::string& folder) {
    alignas(dirent64) char buffer[32768];
    const int opened = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    while (syscall(SYS_getdents64, opened, buffer, sizeof buffer) > 0)
        bench::keep(buffer);
    close(opened);
}

/// Both must have made the same of the folder, or the comparison is worth nothing.
void checkSame(const std::vector<void*>& ours, const Rows& theirs) {
    const auto sameLabel = [](void* a, const TextMenuItem* b) {
        return static_cast<TextMenuItem*>(a)->labelText() == b->labelText();
    };
    if (!std::equal(ours.begin(), ours.end(), theirs.begin(), theirs.end(), sameLabel)) {
        fputs("the rows differ\n", stderr);
        exit(1);
    }
}

void readFolder(const std::string& folder) {
    const std::vector<std::string> names = namesInOrder(folder);
    DirBrowser browser(nullptr, readyRow);
    Rows rows;
    const bench::Contender ours{"kestro", [&] { browser.LoadDir(folder.c_str(), nullptr); },
                                [&] {
                                    browser.freeCache();
                                    makeReady(names);
                                }};
    const bench::Contender standard{"std::filesystem and std::sort",
                                    [&] { readWithStandardLibrary(folder, readyRow, rows); },
                                    [&] {
                                        deleteAll(rows);
                                        makeReady(names);
                                    }};
    const bench::Contender kernel{"getdents64 alone", [&] { readEntries(folder); }, [] {}};
    const std::vector<double> times = bench::medianTimes({ours, standard, kernel});
    bench::report("LoadDir, 20,200 entries", standard.name, times[0] / times[1], 0.65, times[0]);
    bench::report("LoadDir, 20,200 entries", kernel.name, times[0] / times[2], 1.7, times[0]);
    checkSame(*browser.getMenu(folder.c_str()), rows);
    deleteAll(rows);
    makeReady({});
}

/// With rows as a host makes them, which takes as long as all the rest.
void readFolderIntoNewRows(const std::string& folder) {
    DirBrowser browser(nullptr, newRow);
    Rows rows;
    bench::compare(
        "LoadDir, 20,200 entries, and new rows",
        {"kestro", [&] { browser.LoadDir(folder.c_str(), nullptr); }, [&] { browser.freeCache(); }},
        {"std::filesystem and std::sort", [&] { readWithStandardLibrary(folder, newRow, rows); },
         [&] { deleteAll(rows); }},
        0.65);
    deleteAll(rows);
}

/// One by one, each before the first row that is not before it.
void insertAll(const Rows& rows, std::vector<void*>& sorted) {
    for (TextMenuItem* row : rows) {
        const auto notBefore = [row](void* existing) {
            auto* const item = static_cast<TextMenuItem*>(existing);
            if (row->getAction()->sortGroup != item->getAction()->sortGroup)
                return item->getAction()->sortGroup < row->getAction()->sortGroup;
            return strcmp(row->labelText().c_str(), item->labelText().c_str()) <= 0;
        };
        sorted.insert(std::find_if(sorted.begin(), sorted.end(), notBefore), row);
    }
}

void orderRows(const std::vector<std::string>& names) {
    GeneralAction action(nullptr, nullptr);
    std::vector<std::unique_ptr<TextMenuItem>> owned;
    Rows rows;
    std::vector<const char*> labels;
    for (const std::string& name : names) {
        owned.push_back(std::make_unique<TextMenuItem>(name.c_str(), nullptr, &action, false));
        rows.push_back(owned.back().get());
        labels.push_back(rows.back()->labelText().c_str());
    }
    const bench::Contender ours{"kestro", [&] {
                                    kestro::RowOrder order;
                                    for (TextMenuItem* row : rows)
                                        order.add(row);
                                    bench::keep(order.takeOrdered());
                                }};
    const bench::Contender standard{"std::sort by strcmp", [&] {
                                        std::vector<const char*> sorted = labels;
                                        std::sort(sorted.begin(), sorted.end(),
                                                  [](auto* a, auto* b) { return strcmp(a, b) < 0; });
                                        bench::keep(sorted);
                                    }};
    const bench::Contender inserting{"insertion one by one", [&] {
                                         std::vector<void*> sorted;
                                         insertAll(rows, sorted);
                                         bench::keep(sorted);
                                     }};
    const std::vector<double> times = bench::medianTimes({ours, standard, inserting});
    bench::report("ordering 20,000 rows", standard.name, times[0] / times[1], 0.6, times[0]);
    bench::report("ordering 20,000 rows", inserting.name, times[0] / times[2], 1.0 / 200, times[0]);
}

} // namespace

int main() {
    std::vector<std::string> names = bench::titles(20200);
    for (std::string& name : names)
        name += ".zip";
    {
        const bench::ScratchFolder folder(names);
        readFolder(folder.path());
        readFolderIntoNewRows(folder.path());
    }
    names.resize(20000);
    orderRows(names);
}
