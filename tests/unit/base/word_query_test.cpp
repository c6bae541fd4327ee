#include "base/word_query.h"

#include <gtest/gtest.h>

#include "base/unicode.h"

namespace rondora {
namespace {

TEST(WordQueryTest, FindsBeginningsOfWordsWithoutCaseAndAccents) {
  struct Case {
    const char* text;
    const char* query;
    bool isFound;
  };
  const Case cases[] = {{"Grinning cat, smiling", "SMI  gr", true},
                        {"Grinning cat", "at", false},
                        {"Straße – Ärger", "strasse arg", true},
                        {"l’étoile", "etoile", true},
                        {"ёлка йод", "елка иод", true},
                        {"بِأَرْنَب", "بارنب", true},
                        {"笑顔の猫", "猫", true},
                        {"カラス", "ガ", false},
                        {"बिल्ली", "बल", false},
                        {"बिल्ली", "बि", true},
                        {"ＣＰＵ ①", "cpu 1", true},
                        {"any", " -– ", true}};
  for (const auto& [text, query, isFound] : cases) {
    EXPECT_EQ(WordQuery(query).finds({searchKey(text)}), isFound) << text << " / " << query;
  }
  EXPECT_TRUE(WordQuery("cat smi").finds({"cat", "smiling"}));
  EXPECT_EQ(searchKey(" \u00A0(Q)\xFF–Ö\u200D "), "q \uFFFD o") << "one space between words";
}

}  // namespace
}  // namespace rondora
