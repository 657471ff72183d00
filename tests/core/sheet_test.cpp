// Pages of puzzles: how many there are and how large.
#include <stdexcept>

#include <gtest/gtest.h>

#include "page.h"
#include "player.h"

namespace gradino::tests {
namespace {

class Sheet : public Program {
 protected:
  /// The file's bytes, drawn with so many puzzles.
  std::string sheet(std::size_t count, const cli::PageOptions& options) {
    const std::string name = path("sheet.pdf");
    const cli::Printed puzzle{without(fullboard, {0, 8, 40, 80}), std::string(fullboard), 5, 120};
    cli::drawpages(name, std::vector<cli::Printed>(count, puzzle), options);
    return bytes(name);
  }
  static int pages(const std::string& pdf) {
    const std::string_view mark = "/Type /Page\n", other = "/Type /Page ";
    int count = 0;
    for (std::size_t at = 0; at < pdf.size(); ++at)
      count += pdf.compare(at, mark.size(), mark) == 0 || pdf.compare(at, other.size(), other) == 0;
    return count;
  }
};

TEST_F(Sheet, HasAsManyPagesAsThePuzzlesTake) {
  for (const auto& [perpage, expected] : {std::pair{1, 7}, {2, 4}, {4, 2}, {6, 2}}) {
    cli::PageOptions options;
    options.perpage = perpage;
    EXPECT_EQ(pages(sheet(7, options)), expected) << perpage;
  }
}

TEST_F(Sheet, SolutionsStandTwelveToAPageAtTheEnd) {
  cli::PageOptions options;
  options.perpage = 6;
  options.solutions = true;
  EXPECT_EQ(pages(sheet(12, options)), 2 + 1);
  EXPECT_EQ(pages(sheet(13, options)), 3 + 2);
}

TEST_F(Sheet, HasTheSizeOfThePaper) {
  cli::PageOptions options;
  EXPECT_NE(sheet(1, options).find("595.276 841.89"), std::string::npos);
  options.width = 612;
  options.height = 792;
  EXPECT_NE(sheet(1, options).find("612 792"), std::string::npos);
}

TEST_F(Sheet, APlaceThatCannotBeWrittenIsTold) {
  EXPECT_THROW(cli::drawpages(path("none/sheet.pdf"), {}, {}), std::runtime_error);
}

}  // namespace
}  // namespace gradino::tests
