// Each case in tests/cases, in both languages, against what is recorded of it.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "caseboard.h"
#include "forcing.h"
#include "ladders.h"
#include "light.h"
#include "loops.h"
#include "nishio.h"
#include "player.h"
#include "simplecolours.h"
#include "step.h"
#include "transcript.h"
#include "xcolours.h"
#include "xychains.h"

namespace gradino::tests {
namespace {

namespace fs = std::filesystem;

/// "xwing/rows", sorted.
std::vector<std::string> allcases() {
  std::vector<std::string> names;
  for (const auto& technique : fs::directory_iterator(casesfolder()))
    if (technique.is_directory())
      for (const auto& one : fs::directory_iterator(technique))
        if (one.is_directory()) names.push_back(fs::relative(one, casesfolder()).string());
  std::sort(names.begin(), names.end());
  return names;
}

std::string textof(const fs::path& file) {
  std::ostringstream all;
  all << std::ifstream(file, std::ios::binary).rdbuf();
  return all.str();
}

constexpr std::pair<int, const char*> languages[] = {{english, "english"}, {italian, "italian"}};

class EachCase : public Program, public testing::WithParamInterface<std::tuple<std::string, int>> {
 protected:
  static fs::path folder() { return casesfolder() / std::get<0>(GetParam()); }
  static int language() { return std::get<1>(GetParam()); }
  static const char* languagename() { return language() == english ? "english" : "italian"; }
};

TEST_P(EachCase, IsAsRecorded) {
  const fs::path file = folder() / languagename();
  const std::string now = transcript(readboard(folder() / "board"), language());
  ASSERT_TRUE(fs::exists(file)) << file << " is missing: tests/cases/record writes it";
  const std::string differs = difference(textof(file), now);
  EXPECT_TRUE(differs.empty()) << file.string() << " (-) and the program (+) differ:\n" << differs;
}

// ---- what comes in during a wait --------------------------------------------------------------------------

/// All that is seen at the waits and left at the end.
void expectsame(const Played& now, const Played& quiet) {
  ASSERT_EQ(now.waits.size(), quiet.waits.size());
  for (std::size_t k = 0; k < now.waits.size(); ++k) EXPECT_EQ(now.waits[k].frame, quiet.waits[k].frame) << k;
  EXPECT_EQ(now.end.frame, quiet.end.frame);
  EXPECT_EQ(now.end.board, quiet.end.board);
  EXPECT_EQ(now.answers, quiet.answers);
}

/// Runs act with the tables of another board; boxes and all else stay as they are.
void onanotherboard(const CaseBoard& board, const std::function<void()>& act) {
  const auto kept = std::tuple(cellvalue, candmask, candstr, usedmask, filledcount, solutiontext, rowpos,
                               colpos, blockpos, nishioflag);
  filledcount = 0;
  for (int cell = 0; cell < cellcount; ++cell) {
    const auto c = static_cast<std::size_t>(cell);
    cellvalue(cell) = board.digits[c] == '.' ? 0 : board.digits[c] - '0';
    if (cellvalue(cell) != 0) filledcount += 1;
    candmask(cell) = board.masks[c];
    solutiontext(cell) = board.solution.empty() ? "" : board.solution.substr(c, 1);
  }
  rebuildusedmask();
  rebuildcandstr();
  rebuildpositions();
  nishioflag = board.nishio;
  act();
  std::tie(cellvalue, candmask, candstr, usedmask, filledcount, solutiontext, rowpos, colpos, blockpos,
           nishioflag) = kept;
}

/// The same board upside down, with the next digit for each: the technique finds something there too, and
/// something else.
CaseBoard turned(const CaseBoard& board) {
  const auto next = [](char digit) { return digit == '.' ? '.' : digit == '9' ? '1' : char(digit + 1); };
  CaseBoard other = board;
  for (std::size_t cell = 0; cell < cellcount; ++cell) {
    const std::size_t from = (8 - cell / 9) * 9 + cell % 9;
    const int mask = board.masks[from] << 1;
    other.digits[cell] = next(board.digits[from]);
    other.masks[cell] = (mask & fullmask) | (mask > fullmask ? bitvalue(1) : 0);
    if (!board.solution.empty()) other.solution[cell] = next(board.solution[from]);
  }
  return other;
}

TEST_P(EachCase, WhatOtherCommandsFindDuringItsWaitsIsNotItsOwn) {
  const CaseBoard board = readboard(folder() / "board");
  for (const Act& answer : {go, stop, help}) {
    const Played quiet = runstep(board, language(), {answer});
    const bool found = foundflag;
    for (const bool other : {false, true}) {
      expectsame(runstep(board, language(), {answer}, [other] { foundflag = other; }), quiet);
      EXPECT_EQ(foundflag, found);
    }
  }
}

bool among(const CaseBoard& board, std::initializer_list<const Technique*> techniques) {
  return std::find(techniques.begin(), techniques.end(), board.technique) != techniques.end();
}

// Menus work during a wait, and what they start in the generator's form has no window of its own. Chains are
// explained as the last search has left them: the one on show is kept from the first wait of its explanation.
TEST_P(EachCase, ATwinDuringItsWaitsLeavesStepAndExplanationAlone) {
  const CaseBoard board = readboard(folder() / "board");
  const CaseBoard other = turned(board);
  const bool later =
      among(board, {&techniques::xychain, &techniques::loop, &techniques::forcingchain, &techniques::nishio});
  for (const bool explains : {false, true}) {
    const Played quiet = runstep(board, language(), {explains ? help : go});
    const Played disturbed = runstep(board, language(), {explains ? help : go}, [&] {
      if (explains && later && !explaining) return;
      onanotherboard(other, [&] { EXPECT_TRUE(board.technique->twin()); });
    });
    expectsame(disturbed, quiet);
  }
}

// An empty board has no technique on it. The explanation of colours goes on reading what the search has left.
TEST_P(EachCase, ASearchInVainDuringTheExplanationLeavesItAlone) {
  const CaseBoard board = readboard(folder() / "board");
  if (among(board, {&techniques::simplecolours, &techniques::xcolours})) return;
  CaseBoard empty;
  empty.digits = emptyboard;
  empty.masks.fill(fullmask);
  const Played quiet = runstep(board, language(), {help});
  const Played disturbed = runstep(board, language(), {help}, [&] {
    if (!explaining) return;
    const std::string tag = steptag;
    foundflag = false;  // not every search clears it
    onanotherboard(empty, [&] { EXPECT_FALSE(board.technique->step()); });
    EXPECT_EQ(steptag, tag);
  });
  expectsame(disturbed, quiet);
}

INSTANTIATE_TEST_SUITE_P(Cases, EachCase,
                         testing::Combine(testing::ValuesIn(allcases()), testing::Values(english, italian)),
                         [](auto& p) {
                           std::string name = std::get<0>(p.param) + "_" +
                                              (std::get<1>(p.param) == english ? "english" : "italian");
                           for (char& c : name)
                             if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
                           return name;
                         });

// ---- the record -------------------------------------------------------------------------------------------

enum class Became { fresh, changed, same, failed };

/// Writes a transcript anew and says what became of it.
Became record(const std::string& name, int language, const char* file) try {
  const fs::path path = casesfolder() / name / file;
  const std::string now = transcript(readboard(casesfolder() / name / "board"), language);
  const bool fresh = !fs::exists(path);
  const std::string before = textof(path);
  if (before == now) return Became::same;
  std::ofstream(path, std::ios::binary) << now;
  std::cout << (fresh ? "new      " : "changed  ") << name << '/' << file << '\n';
  if (!fresh) std::cout << difference(before, now) << '\n';
  return fresh ? Became::fresh : Became::changed;
} catch (const std::exception& error) {
  std::cout << "failed   " << name << '/' << file << ": " << error.what() << '\n';
  return Became::failed;
}

int recordall(std::vector<std::string> names) {
  if (names.empty()) names = allcases();
  std::map<Became, int> count;
  for (const std::string& name : names)
    for (const auto& [language, file] : languages) ++count[record(name, language, file)];
  std::cout << count[Became::fresh] << " new, " << count[Became::changed] << " changed, "
            << count[Became::same] << " the same, " << count[Became::failed] << " failed\n";
  return count[Became::failed] == 0 ? 0 : 1;
}

}  // namespace
}  // namespace gradino::tests

int main(int argc, char** argv) {
  if (argc > 1 && std::string(argv[1]) == "--record")
    return gradino::tests::recordall({argv + 2, argv + argc});
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
