#pragma once

#include <cstdint>
#include <string>

/// A folder for the length of a test.
class SampleFolder {
public:
    SampleFolder();
    ~SampleFolder();
    SampleFolder(const SampleFolder&) = delete;
    SampleFolder& operator=(const SampleFolder&) = delete;

    const std::string& path() const { return mPath; }
    std::string path(const std::string& name) const { return mPath + "/" + name; }

    void addFile(const std::string& name, const std::string& content = "");
    void addFolder(const std::string& name);

    /// A PNG of one colour, 0xRRGGBB.
    void addPicture(const std::string& name, int width, int height, uint32_t color);

private:
    std::string mPath;
};
