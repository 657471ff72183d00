// The records of the techniques and the two ladders.
#include "ladders.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace gradino::tests {
namespace {

std::string textof(const std::filesystem::path& file) {
  std::ifstream in(file);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The records that the headers of the finders declare.
std::vector<std::string> declaredrecords() {
  const std::regex declaration("extern const Technique ([^;]+);"), name("\\w+");
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(FINDERS)) {
    if (entry.path().extension() != ".h") continue;
    const std::string text = textof(entry.path());
    for (std::sregex_iterator found(text.begin(), text.end(), declaration), none; found != none; ++found) {
      const std::string list = (*found)[1];
      for (std::sregex_iterator each(list.begin(), list.end(), name); each != none; ++each)
        names.push_back(each->str());
    }
  }
  return names;
}

using Rungs = std::set<const Technique*>;

Rungs rungsof(const Ladder& ladder) {
  return {ladder.begin(), ladder.end()};
}

TEST(Ladders, HaveEveryRecordOnce) {
  EXPECT_EQ(rungsof(hintladder).size(), hintladder.size());
  EXPECT_EQ(rungsof(gradeladder), rungsof(hintladder));
  EXPECT_EQ(declaredrecords().size(), hintladder.size());
}

// The order that a puzzle is graded in is that of the hint, but for BUG and unique rectangle.
TEST(Ladders, DifferInBugAndUniqueRectangleOnly) {
  const auto tags = [](const Ladder& ladder) {
    std::vector<std::string_view> found;
    for (const Technique* technique : ladder) found.push_back(technique->tag);
    return found;
  };
  using Tags = std::vector<std::string_view>;
  EXPECT_EQ(tags(hintladder), (Tags{"findOneMissing",
                                    "findSingleInBlock",
                                    "findSingleInRow",
                                    "findSingleInColumn",
                                    "findSingleInCell",
                                    "intersections",
                                    "nakedpair",
                                    "hiddenpair",
                                    "findtriple",
                                    "findquad",
                                    "findxywing",
                                    "findxyzwing",
                                    "findxwing",
                                    "findswordfish",
                                    "findjellyfish",
                                    "colors",
                                    "colors",
                                    "ur",
                                    "bug",
                                    "xychain",
                                    "links",
                                    "xlinks",
                                    "impossible"}));
  EXPECT_EQ(tags(gradeladder), (Tags{"findOneMissing",
                                     "findSingleInBlock",
                                     "findSingleInRow",
                                     "findSingleInColumn",
                                     "findSingleInCell",
                                     "intersections",
                                     "nakedpair",
                                     "hiddenpair",
                                     "findtriple",
                                     "bug",
                                     "ur",
                                     "findquad",
                                     "findxywing",
                                     "findxyzwing",
                                     "findxwing",
                                     "findswordfish",
                                     "findjellyfish",
                                     "colors",
                                     "colors",
                                     "xychain",
                                     "links",
                                     "xlinks",
                                     "impossible"}));
}

TEST(Ladders, LevelsOfTheTechniquesAreThoseOfTheScale) {
  std::vector<int> levels;
  for (const Technique* technique : hintladder) {
    levels.push_back(technique->level);
    if (technique->clashlevel != technique->level) levels.push_back(technique->clashlevel);
  }
  EXPECT_EQ(levels, (std::vector<int>{0,  0,  1,  1,  2,  3,  4,  5,  6,  7,  8,  9, 10,
                                      11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 21}));
}

}  // namespace
}  // namespace gradino::tests
