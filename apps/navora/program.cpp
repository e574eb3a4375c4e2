#include "navora/program.h"

#include "core/log.h"
#include "core/window_stack.h"
#include "hostkit/close_request.h"
#include "hostkit/files.h"
#include "navora/details_page.h"
#include "navora/game_lists.h"
#include "navora/message.h"
#include "navora/place.h"
#include "navora/program_run.h"
#include "navora/programs.h"
#include "system/language.h"

#include <SDL.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace navora {

static struct {
    Programs programs;
    std::vector<std::string> command; // that waits for the loop to end
    std::string folder;               // to run it in
} sProgram;

void startPrograms() {
    sProgram = {loadPrograms(), {}, ""};
}

static std::string fileName(const std::string& path) {
    return fs::path(path).filename().string();
}

static int tell(Shell& shell, Word word, const std::string& about) {
    add2PopupList(new Message(shell, word, about));
    return loopIgnored;
}

/// For what is more than a picture to look at.
static std::string hintFor(const Entry& entry) {
    if (hostkit::thumbnailOf(entry.path) == entry.path) // a picture
        return "";
    const std::string ending = fs::path(entry.name).extension().string();
    return std::string(getLangStr(wordNoProgram)) + " " + (ending.empty() ? entry.name : ending);
}

void showDetails(Shell& shell, const std::string& path) {
    Entry entry;
    if (readEntry(path, entry))
        add2PopupList(
            new DetailsPage(shell, entry, sProgram.programs.commandFor(path).empty() ? hintFor(entry) : ""));
}

int openGame(Shell& shell, const std::string& path) {
    Entry entry;
    if (!readEntry(path, entry))
        return tell(shell, wordCardGone, fileName(path));
    const auto command = sProgram.programs.commandFor(path);
    if (command.empty()) {
        noteStarted(path);
        showDetails(shell, path);
        return loopIgnored;
    }
    if (!hasProgram(command.front()))
        return tell(shell, wordMissingProgram, command.front());
    noteStarted(path);
    sProgram.command = command;
    sProgram.folder = fs::path(path).parent_path().string();
    keepPlace();
    return loopQuit;
}

bool programWaits() {
    return !sProgram.command.empty();
}

bool runWaitingProgram(hostkit::Session& session, Shell& shell) {
    const auto command = std::move(sProgram.command);
    sProgram.command.clear();
    const SignalWatch signals;
    SDL_PumpEvents(); // a signal that came before
    if (hostkit::closeRequested())
        return false;
    tprintf("start %s\n", command.front().c_str());
    session.giveUpScreen();
    const ProgramEnd end = runProgram(command, sProgram.folder, signals);
    tprintf("%s has ended with %d\n", command.front().c_str(), end.code);
    if (signals.endRequested() || !session.takeBackScreen() || signals.endRequested())
        return false;
    if (end.missing)
        tell(shell, wordMissingProgram, command.front());
    else if (end.code != 0)
        tell(shell, wordProgramFailed, fileName(command.front()) + " (" + std::to_string(end.code) + ")");
    return true;
}

} // namespace navora
