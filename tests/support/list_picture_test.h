#pragma once

#include "support/skinned_test.h"

#include <map>
#include <string>
#include <vector>

/// A test of whole pages by their pictures, in English ("en") and in Chinese ("ch"): a dark screen, and
/// rows with rounded backgrounds of 1260 x 90 pixels.
class ListPictureTest : public SkinnedTest, public testing::WithParamInterface<const char*> {
protected:
    void SetUp() override;

    bool isChinese() const { return std::string(GetParam()) == "ch"; }

    /// One of two texts, by the language.
    const char* word(const char* english, const char* chinese) const {
        return isChinese() ? chinese : english;
    }

    /// The names of twenty trees.
    std::vector<std::string> trees() const;

    /// Compares the screen with the picture "menu-NAME-LANGUAGE".
    void expectPage(const std::string& name) { expectPicture("menu-" + name + "-" + GetParam()); }
};
