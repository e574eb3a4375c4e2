#include "navora/programs.h"

#include <cJSON.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>

namespace fs = std::filesystem;

namespace navora {

using Command = std::vector<std::string>;

static std::string lower(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

std::string placeIn(const std::string& text, size_t byte) {
    byte = std::min(byte, text.size());
    const size_t lineBreak = byte == 0 ? std::string::npos : text.rfind('\n', byte - 1);
    const size_t lineBegin = lineBreak == std::string::npos ? 0 : lineBreak + 1;
    const auto begin = text.begin();
    const auto at = begin + static_cast<std::ptrdiff_t>(byte);
    const auto isCharacter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
    const auto line = std::count(begin, at, '\n') + 1;
    const auto column = std::count_if(begin + static_cast<std::ptrdiff_t>(lineBegin), at, isCharacter) + 1;
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

/// Cuts at separators outside of quotes, which go; nothing for a quote without its end.
static std::optional<Command> words(const std::string& text, const std::string& separators) {
    Command found;
    char quote = 0;
    bool inWord = false;
    for (const char c : text) {
        const bool ends = !quote && separators.find(c) != std::string::npos;
        if (!ends && !inWord)
            found.emplace_back();
        inWord = !ends;
        if (ends)
            continue;
        if (quote ? c == quote : c == '\'' || c == '"')
            quote = quote ? '\0' : c;
        else
            found.back() += c;
    }
    return quote ? std::nullopt : std::optional(found);
}

/// The arguments of a command as it is written; nothing for what is no command.
static std::optional<Command> commandOf(const cJSON* value) {
    if (cJSON_IsString(value))
        return words(value->valuestring, " \t\n");
    if (!cJSON_IsArray(value))
        return std::nullopt;
    Command command;
    for (const cJSON* argument = value->child; argument; argument = argument->next) {
        if (!cJSON_IsString(argument))
            return std::nullopt;
        command.emplace_back(argument->valuestring);
    }
    return command;
}

std::string Programs::add(const std::string& extensions, Command command) {
    const auto isEmpty = [](const std::string& text) { return text.empty(); };
    const auto names = words(extensions, " ,\t\n");
    if (!names || names->empty())
        return "a program without an extension";
    if (command.empty() || isEmpty(command.front()))
        return "\"" + extensions + "\" names no program";
    for (const std::string& name : *names)
        mCommands[lower(name.substr(name.front() == '.'))] = command;
    return "";
}

std::string Programs::read(const std::string& text) {
    const char* end = nullptr;
    const std::unique_ptr<cJSON, void (*)(cJSON*)> root(cJSON_ParseWithOpts(text.c_str(), &end, true),
                                                        cJSON_Delete);
    if (!root)
        return placeIn(text, end ? static_cast<size_t>(end - text.c_str()) : 0) + ": this is no JSON";
    const cJSON* const programs = cJSON_GetObjectItemCaseSensitive(root.get(), "programs");
    if (!cJSON_IsObject(programs))
        return "there is no object \"programs\"";
    std::string problem;
    for (const cJSON* entry = programs->child; entry; entry = entry->next) {
        const auto command = commandOf(entry);
        const std::string wrong =
            command ? add(entry->string, *command) : "\"" + std::string(entry->string) + "\" is no command";
        if (problem.empty())
            problem = wrong;
    }
    return problem;
}

static std::string filled(const std::string& argument, const std::string& path, bool& mentionsFile) {
    std::string result;
    for (size_t i = 0; i < argument.size(); ++i) {
        const char next = argument[i] == '%' && i + 1 < argument.size() ? argument[i + 1] : '\0';
        i += next == 'f' || next == 'd' || next == '%';
        mentionsFile |= next == 'f';
        if (next == 'f')
            result += path;
        else if (next == 'd')
            result += fs::path(path).parent_path().string();
        else
            result += argument[i];
    }
    return result;
}

Command Programs::commandFor(const std::string& path) const {
    const std::string extension = fs::path(path).extension().string();
    const auto found = mCommands.find(lower(extension.substr(!extension.empty())));
    if (extension.empty() || found == mCommands.end())
        return {};
    Command command;
    bool mentionsFile = false;
    for (const std::string& argument : found->second)
        command.push_back(filled(argument, path, mentionsFile));
    if (!mentionsFile)
        command.push_back(path);
    return command;
}

} // namespace navora
