#include "singlish/SinglishCustomization.h"

#include "Randoms.h"
#include "settings/CustomizationJson.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>
#include <vector>

namespace vanoka {

namespace {

using namespace std::string_literals;

const SinglishCustomization sample = {{{"q", "\u0D9A"}}, {"aa"}};

TEST(SinglishCustomization, IsEmptyWithoutKeys) {
    EXPECT_TRUE(SinglishCustomization().isEmpty());
    EXPECT_FALSE((SinglishCustomization{{{"q", "\u0D9A"}}, {}}).isEmpty());
    EXPECT_FALSE((SinglishCustomization{.disabledKeys = {"a"}}).isEmpty());
}

TEST(SinglishCustomization, TheOrderOfAddedKeysCounts) {
    const SinglishCustomization one = {{{"p", "\u0D9A"}, {"q", "\u0D9C"}}, {"a", "b"}};
    const SinglishCustomization other = {{{"q", "\u0D9C"}, {"p", "\u0D9A"}}, {"a", "b"}};
    EXPECT_NE(one, other);
    EXPECT_EQ(one, (SinglishCustomization{one.addedKeys, {"b", "a"}}));
    EXPECT_NE(one, (SinglishCustomization{one.addedKeys, {"a"}}));
}

TEST(SinglishCustomization, TextsAreComparedCanonically) {
    using Added = SinglishCustomization::AddedKey;
    EXPECT_EQ((Added{"K", "\u0D9A\u0DDA"}), (Added{"\u212A", "\u0D9A\u0DD9\u0DCA"}));
    EXPECT_EQ(std::hash<Added>()({"K", "\u0D9A"}), std::hash<Added>()({"\u212A", "\u0D9A"}));
    EXPECT_NE(std::hash<Added>()({"K", "\u0D9A"}), std::hash<Added>()({"\u0D9A", "K"}));
    EXPECT_NE(std::hash<Added>()({"K", "\u0D9A"}), std::hash<Added>()({"k", "\u0D9A"}));
    EXPECT_NE(std::hash<Added>()({"K", "\u0D9A"}), std::hash<Added>()({"K", "\u0D9B"}));
    EXPECT_NE((Added{"k", "\u0D9A"}), (Added{"K", "\u0D9A"}));
    EXPECT_NE((Added{"k", "\u0D9A"}), (Added{"k", "\u0D9B"}));
    EXPECT_EQ((SinglishCustomization{.disabledKeys = {"K"}}),
              (SinglishCustomization{.disabledKeys = {"\u212A"}}));
    EXPECT_EQ((SinglishCustomization{.disabledKeys = {"K", "\u212A"}}).disabledKeys.size(), 1U);
}

TEST(SinglishCustomization, IsStoredAsCompactJson) {
    EXPECT_EQ(CustomizationJson::encode(sample),
              "{\"addedKeys\":[{\"key\":\"q\",\"letter\":\"\u0D9A\"}],\"disabledKeys\":[\"aa\"]}");
    EXPECT_EQ(CustomizationJson::encode({}), R"({"addedKeys":[],"disabledKeys":[]})");
    EXPECT_EQ(CustomizationJson::encode({.disabledKeys = {"\"\\\n\x01"}}),
              R"({"addedKeys":[],"disabledKeys":["\"\\\n\u0001"]})");
}

TEST(SinglishCustomization, IllFormedTextCannotBeStored) {
    EXPECT_EQ(CustomizationJson::encode({.disabledKeys = {"\xFF"}}), std::nullopt);
    EXPECT_EQ(CustomizationJson::encode({{{"\xE0", "\u0D9A"}}, {}}), std::nullopt);
    EXPECT_EQ(CustomizationJson::encode({{{"k", "\x80"}}, {}}), std::nullopt);
}

TEST(SinglishCustomization, DecodesWhatJsonAllows) {
    struct Row {
        std::string document;
        SinglishCustomization expected;
    };
    const std::vector<Row> rows = {
        {R"({"addedKeys":[],"disabledKeys":[]})", {}},
        {R"({"disabledKeys":["aa"],"addedKeys":[{"letter":"ක","key":"q"}]})", sample},
        {" \t\r\n{ \"addedKeys\" : [ { \"key\" : \"q\" , \"letter\" : \"\u0D9A\" } ] "
         ",\n\"disabledKeys\":[\"aa\"] }\n",
         sample},
        {R"({"addedKeys":[{"key":"\u0071","letter":"\u0d9A"}],"disabledKeys":["\u0061a"]})", sample},
        {R"({"\u0061ddedKeys":[{"k\u0065y":"q","letter":"ක"}],"disabled\u004Beys":["aa"]})", sample},
        {R"({"addedKeys":[{"key":"q","letter":"ක","x":[1,{"y":null}]}],"disabledKeys":["aa"],"z":{"a":[-1.5e3,true]}})",
         sample},
        {R"({"addedKeys":[{"key":"q","note":"own","letter":"ක"}],"disabledKeys":["aa"]})", sample},
        {R"({"addedKeys":[{"key":"q","letter":"ක","note":"own"}],"disabledKeys":["aa"]})", sample},
        {R"({"x":["bb",{"y":"cc"}],"addedKeys":[{"key":"q","letter":"ක","x":["p"]}],"disabledKeys":["aa"]})",
         sample},
        // a field's name where it means another one
        {R"({"key":7,"disabledKeys":["aa"],"addedKeys":[{"key":"q","letter":"ක","disabledKeys":1,"addedKeys":1}]})",
         sample},
        {R"({"letter":"ග","key":"p","addedKeys":[{"key":"q","letter":"ක"}],"letter":1,"disabledKeys":["aa"]})",
         sample},
        {R"({"addedKeys":7,"addedKeys":[{"key":3,"key":"q","letter":[],"letter":"ක"}],"disabledKeys":null,"disabledKeys":["aa"]})",
         sample},
        {R"({"x":1e999,"disabledKeys":["aa"],"y":[-1E+0999,1.0e-999],"addedKeys":[{"key":"q","z":1e999,"letter":"ක"}]})",
         sample},
        {R"({"x":)" + std::string(1000, '9') + R"(,"y":0.)" + std::string(1000, '0') +
             R"(1,"addedKeys":[],"disabledKeys":["12345","\"12345","\\","\u0031234"]})",
         {.disabledKeys = {"12345", "\"12345", "\\", "1234"}}},
        {R"({"x":1e9099,"y":0.10000000000000000000000000001e-9000,"addedKeys":[],"disabledKeys":[]})", {}},
        {R"({"addedKeys":1e999,"addedKeys":[],"disabledKeys":[]})", {}},
        {R"({"addedKeys":[],"disabledKeys":["aa","aa","\u0061a"]})", {.disabledKeys = {"aa"}}},
        {R"({"addedKeys":[],"disabledKeys":["K","\u212A"]})", {.disabledKeys = {"K"}}},
        {R"({"addedKeys":[{"key":"p","letter":"ක"},{"key":"p","letter":"ග"}],"disabledKeys":[]})",
         {{{"p", "\u0D9A"}, {"p", "\u0D9C"}}, {}}},
        {R"({"addedKeys":[{"key":"","letter":"no letter"}],"disabledKeys":[""]})",
         {{{"", "no letter"}}, {""}}},
        {R"({"addedKeys":[{"key":"\u0000","letter":"\ud83d\ude00"}],"disabledKeys":[]})",
         {{{"\0"s, "\U0001F600"}}, {}}},
    };
    for (const Row& row : rows) {
        const auto decoded = CustomizationJson::decode(row.document);
        ASSERT_TRUE(decoded.has_value()) << row.document;
        EXPECT_EQ(*decoded, row.expected) << row.document;
    }
}

TEST(SinglishCustomization, NothingElseDecodes) {
    const std::vector<std::string> documents = {
        "",
        " ",
        R"({"addedKeys":[],"disabledKeys":["aa",1,"bb"]})",
        "null",
        "[]",
        "\"addedKeys\"",
        "{}",
        R"({"addedKeys":[]})",
        R"({"disabledKeys":[]})",
        R"({"addedKeys":[{"key":"q"}],"disabledKeys":[]})",
        R"({"addedKeys":[{"letter":"q"}],"disabledKeys":[]})",
        R"({"addedKeys":[{"key":null,"letter":"q"}],"disabledKeys":[]})",
        R"({"addedKeys":[{"key":"q","letter":1}],"disabledKeys":[]})",
        R"({"addedKeys":[{"key":["q"],"letter":"q"}],"disabledKeys":[]})",
        R"({"addedKeys":[{"key":"q","letter":{"letter":"q"}}],"disabledKeys":[]})",
        R"({"addedKeys":[{"key":"q","letter":"q"},{"letter":"q"}],"disabledKeys":[]})",
        R"({"addedKeys":[{"key":"q","letter":"q"},{"key":"q"}],"disabledKeys":[]})",
        R"({"addedKeys":["q"],"disabledKeys":[]})",
        R"({"addedKeys":[[]],"disabledKeys":[]})",
        R"({"addedKeys":[null],"disabledKeys":[]})",
        R"({"addedKeys":{},"disabledKeys":[]})",
        R"({"addedKeys":null,"disabledKeys":[]})",
        R"({"addedKeys":-7,"disabledKeys":[]})",
        R"({"addedKeys":[1.5],"disabledKeys":[]})",
        R"({"addedKeys":[],"disabledKeys":[false]})",
        R"({"addedKeys":[],"disabledKeys":null})",
        R"({"addedKeys":[],"disabledKeys":"aa"})",
        R"({"addedKeys":[],"disabledKeys":{"aa":true}})",
        R"({"addedKeys":[],"disabledKeys":[1]})",
        R"({"addedKeys":[],"disabledKeys":[null]})",
        R"({"addedKeys":[],"disabledKeys":[["aa"]]})",
        R"({"AddedKeys":[],"disabledKeys":[]})",
        R"({"addedKeys":[],"disabledKeys":1e999})",
        R"({"addedKeys":[1e999],"disabledKeys":[]})",
        R"({"addedKeys":[{"key":1e999,"letter":"q"}],"disabledKeys":[]})",
        // of two fields with one name the last counts
        R"({"addedKeys":[],"disabledKeys":[],"addedKeys":1})",
        R"({"addedKeys":[],"disabledKeys":[],"disabledKeys":null})",
        R"({"addedKeys":[{"key":"q","key":3,"letter":"q"}],"disabledKeys":[]})",
        R"({"addedKeys":[{"key":"q","letter":"q","letter":[]}],"disabledKeys":[]})",
        // not JSON
        R"({"addedKeys":[],"disabledKeys":[]}x)",
        R"({"addedKeys":[],"disabledKeys":[]}{})",
        R"({"addedKeys":[],"disabledKeys":[]})"
        "\0"s,
        R"({"addedKeys":[],"disabledKeys":[]})"
        "\0x"s,
        R"({"addedKeys":[],"disabledKeys":[])",
        R"({"addedKeys":[],"disabledKeys":[],})",
        R"({"addedKeys":[,],"disabledKeys":[]})",
        R"({"addedKeys":[],"disabledKeys":["aa",]})",
        R"({"addedKeys":[],"disabledKeys":[]} // a comment)",
        R"(/* a comment */{"addedKeys":[],"disabledKeys":[]})",
        R"({'addedKeys':[],'disabledKeys':[]})",
        R"({addedKeys:[],disabledKeys:[]})",
        R"({"addedKeys":[],"disabledKeys":[],"x":NaN})",
        R"({"addedKeys":[],"disabledKeys":[],"x":01})",
        R"({"addedKeys":[],"disabledKeys":[],"x":0123456})",
        R"({"addedKeys":[],"disabledKeys":[],"x":-0001e999})",
        R"({"addedKeys":[],"disabledKeys":[],"x":1e999.5})",
        R"({"addedKeys":[],"disabledKeys":[],"x":1e999e1})",
        R"({"addedKeys":[],"disabledKeys":[],"x":1234 5678})",
        R"({"addedKeys":[],"disabledKeys":[],"x":1e999)",
        R"({"addedKeys":[],"disabledKeys":[],"x":.5})",
        R"({"addedKeys":[],"disabledKeys":[],"x":+1})",
        R"({"addedKeys":[],"disabledKeys":[],"x":tru})",
        R"({"addedKeys":[],"disabledKeys":[],"x":[})",
        R"({"addedKeys":[],"disabledKeys":["\x41"]})",
        R"({"addedKeys":[],"disabledKeys":["\ud800"]})",
        R"({"addedKeys":[],"disabledKeys":["\udc00"]})",
        R"({"addedKeys":[],"disabledKeys":["\ud800\u0041"]})",
        R"({"addedKeys":[],"disabledKeys":["\u12"]})",
        "{\"addedKeys\":[],\"disabledKeys\":[\"a\nb\"]}",
        "{\"addedKeys\":[],\"disabledKeys\":[\"a\tb\"]}",
        "{\"addedKeys\":[],\"disabledKeys\":[\"\0\"]}"s,
        "{\"addedKeys\":[],\"disabledKeys\":[\"\xFF\"]}",
        "{\"addedKeys\":[],\"disabledKeys\":[\"\xC0\x80\"]}",
        "{\"addedKeys\":[],\"disabledKeys\":[\"\xED\xA0\x80\"]}",
        "{\"addedKeys\":[],\"disabledKeys\":[],\"x\":\"\xE0\"}",
        "\uFEFF{\"addedKeys\":[],\"disabledKeys\":[]}",
        "\f{\"addedKeys\":[],\"disabledKeys\":[]}",
        "\u00A0{\"addedKeys\":[],\"disabledKeys\":[]}",
        "{\0\"\0a\0\"\0:\0[\0]\0}\0"s, // UTF-16
        "\xFF\xFE{\0}\0"s,
    };
    for (const std::string& document : documents)
        EXPECT_EQ(CustomizationJson::decode(document), std::nullopt) << testing::PrintToString(document);
}

TEST(SinglishCustomization, DeepNestingDoesNoHarm) {
    const std::string deep = std::string(2'000'000, '[') + std::string(2'000'000, ']');
    EXPECT_EQ(CustomizationJson::decode(R"({"addedKeys":[],"x":)" + deep + R"(,"disabledKeys":[]})"),
              SinglishCustomization());
    EXPECT_EQ(CustomizationJson::decode(R"({"addedKeys":[],"disabledKeys":)" + deep + "}"), std::nullopt);
    EXPECT_EQ(CustomizationJson::decode(std::string(2'000'000, '[')), std::nullopt);
    std::string objects;
    for (int i = 0; i < 100'000; ++i)
        objects += R"({"x":)";
    EXPECT_EQ(CustomizationJson::decode(objects), std::nullopt);
}

TEST(SinglishCustomization, AHugeDocumentDecodes) {
    SinglishCustomization huge;
    for (int i = 0; i < 50'000; ++i)
        huge.addedKeys.push_back({"key" + std::to_string(i), "\u0D9A"});
    huge.disabledKeys.insert(std::string(1'000'000, 'k'));
    EXPECT_EQ(CustomizationJson::decode(*CustomizationJson::encode(huge)), huge);
}

TEST(SinglishCustomization, WhatIsStoredIsReadBackEqual) {
    test::Randoms randoms(7);
    int stored = 0;
    for (int round = 0; round < 2000; ++round) {
        const SinglishCustomization customization = randoms.strangeCustomization();
        const auto document = CustomizationJson::encode(customization);
        if (!document)
            continue; // ill-formed
        ++stored;
        ASSERT_TRUE(text::isWellFormed(*document));
        ASSERT_EQ(CustomizationJson::decode(*document), customization) << *document;
    }
    EXPECT_GT(stored, 500);
}

} // namespace

} // namespace vanoka
