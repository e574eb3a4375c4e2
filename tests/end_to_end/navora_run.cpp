#include "end_to_end/navora_run.h"

static std::vector<std::string> commandLine(const SampleFolder& device,
                                            const std::vector<std::string>& arguments) {
    std::vector<std::string> command{NAVORA, "--device-root", device.path()};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

Navora::Navora(const std::vector<std::string>& arguments, const std::vector<std::string>& environment,
               const std::string& folder)
    : Process(commandLine(mDevice, arguments), environment, folder) {}

Outcome runNavora(const std::vector<std::string>& arguments, const std::vector<std::string>& environment,
                  const std::string& folder) {
    Navora navora(arguments, environment, folder);
    const int exitCode = navora.wait();
    return {exitCode, navora.output(), navora.errors()};
}

Picture NavoraTest::shot(const std::string& folder, const std::string& keys,
                         const std::vector<std::string>& moreOptions) {
    return timedShot(folder, keys, moreOptions).without(layout::clock);
}

Picture NavoraTest::timedShot(const std::string& folder, const std::string& keys,
                              const std::vector<std::string>& moreOptions) {
    const std::string file = mResults.path("page.bmp");
    std::vector<std::string> arguments{"--shot", file, "--keys", keys};
    arguments.insert(arguments.end(), moreOptions.begin(), moreOptions.end());
    arguments.push_back(folder);
    const Outcome run = runNavora(arguments);
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_EQ(run.errors, "");
    const Picture page = readPicture(file);
    EXPECT_EQ(page.width, 1280);
    EXPECT_EQ(page.height, 720);
    return page.width == 1280 && page.height == 720 ? page
                                                    : Picture{1280, 720, std::vector<uint32_t>(1280 * 720)};
}

Picture NavoraTest::gamesShot(const std::string& folder, const std::string& keys,
                              const std::vector<std::string>& moreOptions) {
    return shot(folder, keys.empty() ? "a" : "a," + keys, moreOptions);
}

Picture NavoraTest::plainGamesShot(const std::string& folder, const std::string& keys) {
    SampleFolder theme;
    theme.addFolder("skin");
    theme.addPicture("skin/bg.png", 1280, 720, 0);
    return gamesShot(folder, keys, {"--theme", theme.path()});
}

int cursorRow(const Picture& page) {
    constexpr uint32_t bar = 0x0B503F;
    for (int row = 0; row < layout::rows; ++row)
        if (page.at(700, layout::list.y + row * layout::rowHeight + 88) == bar)
            return row;
    return -1;
}

Picture rowText(const Picture& page, int row) {
    return page.part({161, layout::list.y + row * layout::rowHeight, 700, layout::rowHeight});
}

uint32_t middle(const Picture& page, const SDL_Rect& rect) {
    return page.at(rect.x + rect.w / 2, rect.y + rect.h / 2);
}
