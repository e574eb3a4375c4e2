#include "support/settings_test.h"
#include "system/current_language.h"
#include "system/json_lookup.h"

#include <cJSON.h>

#include <atomic>
#include <memory>
#include <thread>

namespace {

struct DeleteTree {
    void operator()(cJSON* tree) const { cJSON_Delete(tree); }
};
using Tree = std::unique_ptr<cJSON, DeleteTree>;

class JsonLookupTest : public SettingsTest {
protected:
    static Tree parse(const std::string& json) {
        Tree tree(cJSON_Parse(json.c_str()));
        EXPECT_NE(tree, nullptr) << json;
        return tree;
    }

    /// The number of the item that is found; -1 for none.
    static int found(const Tree& tree, const char* key) {
        const cJSON* const item = cJSON_GetObjectItem(tree.get(), key);
        return item ? item->valueint : -1;
    }

    static std::string text(const Tree& tree) {
        char* const printed = cJSON_PrintUnformatted(tree.get());
        const std::string copy = printed;
        cJSON_free(printed);
        return copy;
    }
};

} // namespace

TEST_F(JsonLookupTest, LocalKeyIsKeyAndLanguageJoinedByAPoint) {
    EXPECT_STREQ(getLocalKey("title"), "title.en.lang");
    setSystemLanguage("ch.lang");
    EXPECT_STREQ(getLocalKey("title"), "title.ch.lang");
    EXPECT_STREQ(getLocalKey(""), ".ch.lang");
}

TEST_F(JsonLookupTest, LocalKeyIsOverwrittenByTheNextCall) {
    char* const first = getLocalKey("first");
    char* const second = getLocalKey("second");
    EXPECT_EQ(first, second);
    EXPECT_STREQ(first, "second.en.lang");
}

TEST_F(JsonLookupTest, LocalKeyHoldsAtMost63Characters) {
    EXPECT_EQ(getLocalKey(std::string(55, 'k').c_str()), std::string(55, 'k') + ".en.lang");
    EXPECT_EQ(getLocalKey(std::string(56, 'k').c_str()), std::string(56, 'k') + ".en.lan");
    EXPECT_EQ(getLocalKey(std::string(5000, 'k').c_str()), std::string(63, 'k'));
    setSystemLanguage(std::string(64, 'l').c_str());
    EXPECT_EQ(getLocalKey("k"), "k." + std::string(61, 'l'));
}

TEST_F(JsonLookupTest, LocalKeyOfNullIsThatOfAnEmptyOne) {
    EXPECT_STREQ(getLocalKey(nullptr), ".en.lang");
}

TEST_F(JsonLookupTest, FindsAnItemByName) {
    const Tree tree = parse(R"({"a": 1, "b": 2})");
    EXPECT_EQ(found(tree, "a"), 1);
    EXPECT_EQ(found(tree, "b"), 2);
    EXPECT_EQ(found(tree, "c"), -1);
    EXPECT_EQ(found(tree, ""), -1);
    EXPECT_EQ(cJSON_GetObjectItem(tree.get(), "a"), tree->child) << "the item itself";
}

TEST_F(JsonLookupTest, ComparesWithoutRegardToCase) {
    const Tree tree = parse(R"({"Title": 1, "TITLE.EN.LANG": 2, "other": 3})");
    EXPECT_EQ(found(tree, "title"), 2);
    EXPECT_EQ(found(tree, "OTHER"), 3);
    setSystemLanguage("ch.lang");
    EXPECT_EQ(found(tree, "tITLE"), 1);
}

TEST_F(JsonLookupTest, ComparesWholeNames) {
    const Tree tree = parse(R"({"title2": 1, "titl": 2, "title.en": 3, "title.en.lang2": 4})");
    EXPECT_EQ(found(tree, "title"), -1);
}

TEST_F(JsonLookupTest, TakesTheFirstOfEqualNames) {
    const Tree tree = parse(R"({"a": 1, "A": 2, "a": 3, "b.en.lang": 4, "B.EN.LANG": 5})");
    EXPECT_EQ(found(tree, "A"), 1);
    EXPECT_EQ(found(tree, "b"), 4);
}

TEST_F(JsonLookupTest, TakesTheVariantOfTheCurrentLanguageWhereverItStands) {
    const Tree before = parse(R"({"a.en.lang": 2, "a": 1})");
    const Tree after = parse(R"({"a": 1, "a.en.lang": 2})");
    EXPECT_EQ(found(before, "a"), 2);
    EXPECT_EQ(found(after, "a"), 2);
    setSystemLanguage("ch.lang");
    EXPECT_EQ(found(before, "a"), 1);
    EXPECT_EQ(found(after, "a"), 1);
}

TEST_F(JsonLookupTest, NeedsNoPlainKeyBesideAVariant) {
    const Tree tree = parse(R"({"a.ch.lang": 2})");
    EXPECT_EQ(found(tree, "a"), -1);
    EXPECT_EQ(found(tree, "a.ch.lang"), 2);
    setSystemLanguage("ch.lang");
    EXPECT_EQ(found(tree, "a"), 2);
}

TEST_F(JsonLookupTest, FindsVariantsOfVariants) {
    const Tree tree = parse(R"({"a.en.lang": 1, "a.en.lang.en.lang": 2})");
    EXPECT_EQ(found(tree, "a"), 1);
    EXPECT_EQ(found(tree, "a.en.lang"), 2);
}

TEST_F(JsonLookupTest, TakesANullVariantToo) {
    const Tree tree = parse(R"({"a": 1, "a.en.lang": null})");
    EXPECT_TRUE(cJSON_IsNull(cJSON_GetObjectItem(tree.get(), "a")));
}

TEST_F(JsonLookupTest, FindsNothingInNullOrByNull) {
    const Tree tree = parse(R"json({"a": 1, "": 2, "(null)": 3, ".en.lang": 4})json");
    EXPECT_EQ(cJSON_GetObjectItem(nullptr, "a"), nullptr);
    EXPECT_EQ(cJSON_GetObjectItem(tree.get(), nullptr), nullptr);
    EXPECT_EQ(cJSON_GetObjectItem(nullptr, nullptr), nullptr);
    EXPECT_EQ(found(tree, ""), 4);
}

TEST_F(JsonLookupTest, FindsNothingInWhatIsNoObject) {
    for (const char* json : {"[1, 2, [3]]", "[]", "{}", "5", "\"a\"", "null", "true"})
        EXPECT_EQ(found(parse(json), "a"), -1) << json;
}

TEST_F(JsonLookupTest, PassesOverItemsWithoutAName) {
    const Tree tree = parse("{}");
    cJSON_AddItemToArray(tree.get(), cJSON_CreateNumber(1));
    cJSON_AddNumberToObject(tree.get(), "a", 2);
    cJSON_AddItemToArray(tree.get(), cJSON_CreateNumber(3));
    EXPECT_EQ(found(tree, "a"), 2);
    EXPECT_EQ(found(tree, "b"), -1);
}

TEST_F(JsonLookupTest, FindsKeysOfAnyLengthButVariantsOfUpTo63Characters) {
    const std::string fitting(55, 'k');
    const std::string tooLong(56, 'k');
    const std::string huge(10'000, 'k');
    const Tree tree = parse("{\"" + fitting + "\": 1, \"" + fitting + ".en.lang\": 2, \"" + tooLong +
                            "\": 3, \"" + tooLong + ".en.lang\": 4, \"" + huge + "\": 5}");
    EXPECT_EQ(found(tree, fitting.c_str()), 2);
    EXPECT_EQ(found(tree, tooLong.c_str()), 3);
    EXPECT_EQ(found(tree, huge.c_str()), 5);
}

TEST_F(JsonLookupTest, LongKeyDoesNotFindWhatItsCutVariantNames) {
    const std::string longKey(56, 'k');
    const Tree tree = parse("{\"" + longKey + ".en.lan\": 1, \"" + longKey + "\": 2}");
    EXPECT_EQ(found(tree, longKey.c_str()), 2);
}

TEST_F(JsonLookupTest, DoesNotDisturbTheLocalKey) {
    const Tree tree = parse(R"({"a": 1})");
    const char* const local = getLocalKey("title");
    found(tree, "a");
    EXPECT_STREQ(local, "title.en.lang");
}

TEST_F(JsonLookupTest, ServesCjsonsOwnOperationsByName) {
    setSystemLanguage("es.lang");
    const Tree tree = parse(R"({"a": 1, "a.es.lang": 2, "b": 3, "b.es.lang": 4, "only.es.lang": 5})");
    EXPECT_TRUE(cJSON_HasObjectItem(tree.get(), "only"));
    EXPECT_FALSE(cJSON_HasObjectItem(tree.get(), "none"));
    const Tree detached(cJSON_DetachItemFromObject(tree.get(), "a"));
    EXPECT_EQ(detached->valueint, 2);
    cJSON_DeleteItemFromObject(tree.get(), "b");
    EXPECT_EQ(text(tree), R"({"a":1,"b":3,"only.es.lang":5})");
}

TEST_F(JsonLookupTest, LeavesCjsonsLookupWithRegardToCaseAlone) {
    const Tree tree = parse(R"({"a": 1, "a.en.lang": 2})");
    EXPECT_EQ(cJSON_GetObjectItemCaseSensitive(tree.get(), "a")->valueint, 1);
    EXPECT_EQ(cJSON_GetObjectItemCaseSensitive(tree.get(), "A"), nullptr);
}

TEST_F(JsonLookupTest, MayRunOnSeveralThreads) {
    const Tree tree = parse(R"({"first": 1, "first.en.lang": 2, "second": 3, "second.en.lang": 4})");
    std::atomic<int> wrong{0};
    const auto look = [&](const char* key, int value) {
        for (int i = 0; i < 2000; ++i)
            wrong += found(tree, key) != value;
    };
    std::thread other(look, "first", 2);
    look("second", 4);
    other.join();
    EXPECT_EQ(wrong, 0);
}
