// The tables of menu and toolbars: no row lacks anything, and the page on the keyboard knows them all.
#include "commands.h"

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <utility>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "access.h"
#include "player.h"

namespace gradino::tests {
namespace {

const std::filesystem::path sources = std::filesystem::path(TESTDATA) / "../..";

/// A file with each run of blanks and line breaks as one blank.
std::string wordsof(const char* name) {
  std::ifstream file(sources / name);
  std::string page, word;
  while (file >> word) page += word + ' ';
  return page;
}

bool complete(const Words& words) {
  return !words.it.empty() && !words.en.empty();
}

TEST(Tables, EveryMenuEntryHasWordsAndAnAction) {
  std::set<std::string> names;
  ASSERT_TRUE(menurows().front().title);
  for (const MenuRow& row : menurows()) {
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
    EXPECT_TRUE(std::string(row.name).starts_with("mnu")) << row.name;
    EXPECT_TRUE(complete(row.caption)) << row.name;
    EXPECT_EQ(row.action == nullptr, row.title) << row.name;
  }
}

TEST(Tables, EveryKeyHasWordsAPictureAndAnAction) {
  const std::string pictures = wordsof("src/ui/qt/art/art.qrc");
  for (const auto& keys : {toolbar1rows(), toolbar2rows()}) {
    std::set<std::string> names;
    for (const KeyRow& row : keys) {
      if (row.control == nullptr) continue;
      EXPECT_TRUE(names.insert(row.key).second) << row.key;
      EXPECT_TRUE(complete(row.tip) || complete(row.name)) << row.key;
      EXPECT_TRUE(complete(row.description)) << row.key;
      EXPECT_NE(row.action, nullptr) << row.key;
      EXPECT_NE(pictures.find(fmt::format("<file>toolbar/{}.svg</file>", row.key)), std::string::npos)
          << row.key;
    }
  }
}

// Its menus in their order, and the keys of each bar as a screen reader names them.
TEST_F(Program, ThePageOnTheKeyboardKnowsMenusAndKeys) {
  const std::string page = wordsof("docs/keyboard.md");
  std::string menus;
  for (const MenuRow& row : menurows())
    if (row.title)
      menus += fmt::format(R"(\| Alt\+. {} \| Alt\+. {} \|[^|]*\| )", row.caption.en, row.caption.it);
  EXPECT_TRUE(std::regex_search(page, std::regex(menus))) << menus;
  for (const auto& [bar, keys] :
       {std::pair{"the upper toolbar:", toolbar2rows()}, {"the lower toolbar:", toolbar1rows()}}) {
    std::string expected = bar;
    for (const KeyRow& row : keys)
      if (row.control != nullptr && row.control->visible) expected += ' ' + spoken(*row.control).name + ',';
    expected.pop_back();
    EXPECT_NE(page.find(expected + ' '), std::string::npos) << expected;
  }
}

}  // namespace
}  // namespace gradino::tests
