// The console program against the reference results, object by object.
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::json;
using Lines = std::vector<Json>;

const std::string data = std::string(TESTDATA) + "/reference/";

Lines linesof(const std::string& command) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::string text;
  char buffer[1 << 16];
  for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe.get())) > 0;) text.append(buffer, n);
  Lines lines;
  for (std::size_t begin = 0, end; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1)
    lines.push_back(Json::parse(text.substr(begin, end - begin)));
  return lines;
}

Lines printed(const std::string& arguments) {
  return linesof(std::string(GRADINO_CLI) + " " + arguments);
}
Lines wanted(const std::string& file) {
  return linesof((file.ends_with(".xz") ? "xz -dc " : "cat ") + data + file);
}

/// Only that there is a fault counts, not its words.
void blurfault(Json& object) {
  if (object.contains("fault")) object["fault"] = !object["fault"].is_null();
}

void expectsame(Json got, Json want, const std::string& where) {
  blurfault(got);
  blurfault(want);
  if (got == want) return;
  ADD_FAILURE() << where << "\n" << Json::diff(want, got).dump(1);
}

void comparegrades(const std::string& puzzles, const Lines& want, const std::string& language) {
  const Lines got = printed("grade --snapshots --json --jobs 2 --lang " + language + " " + data + puzzles);
  ASSERT_EQ(got.size(), want.size());
  for (std::size_t i = 0; i < want.size(); ++i) expectsame(got[i], want[i], want[i]["puzzle"]);
}

/// The walks puzzle by puzzle.
std::vector<Lines> walksof(const Lines& lines) {
  std::vector<Lines> walks;
  for (const Json& line : lines) {
    if (line.contains("puzzle")) walks.emplace_back();
    walks.back().push_back(line);
  }
  return walks;
}

void comparewalks(const std::string& arguments, const Lines& wantedlines) {
  const std::vector<Lines> got =
      walksof(printed("walk --json " + arguments + " " + data + "walk.puzzles.txt"));
  const std::vector<Lines> want = walksof(wantedlines);
  ASSERT_EQ(got.size(), want.size());
  for (std::size_t w = 0; w < want.size(); ++w) {
    ASSERT_EQ(got[w].size(), want[w].size()) << want[w][0];
    for (std::size_t i = 0; i < want[w].size(); ++i)
      expectsame(got[w][i], want[w][i],
                 want[w][0]["puzzle"].get<std::string>() + " line " + std::to_string(i));
    if (testing::Test::HasFailure()) return;
  }
}

TEST(Reference, GradesInEnglish) {
  comparegrades("grade.puzzles.txt", wanted("grade.en.jsonl.xz"), "en");
}
TEST(Reference, GradesInItalian) {
  comparegrades("grade.puzzles.txt", wanted("grade.it.jsonl.xz"), "it");
}
TEST(Reference, OddBoardsInEnglish) {
  comparegrades("odd.boards.txt", wanted("odd.en.jsonl.xz"), "en");
}
TEST(Reference, OddBoardsInItalian) {
  comparegrades("odd.boards.txt", wanted("odd.it.jsonl.xz"), "it");
}

TEST(Reference, Counts) {
  const Lines got = printed("count --json " + data + "odd.boards.txt"), want = wanted("count.jsonl");
  ASSERT_EQ(got.size(), want.size());
  for (std::size_t i = 0; i < want.size(); ++i) expectsame(got[i], want[i], want[i]["puzzle"]);
}

TEST(Reference, Walks) {
  comparewalks("", wanted("walk.en.jsonl.xz"));
}
TEST(Reference, WalksWithAStop) {
  comparewalks("--stop 12", wanted("walk.stop12.en.jsonl.xz"));
}
TEST(Reference, WalksExplainedInEnglish) {
  comparewalks("--explain", wanted("walk.explain.en.jsonl.xz"));
}
TEST(Reference, WalksExplainedInItalian) {
  comparewalks("--explain --lang it", wanted("walk.explain.it.jsonl.xz"));
}

TEST(Reference, EachTechniqueAlone) {
  const std::string states = data + "states.jsonl.xz";
  const Lines got = linesof("xz -dc " + states + " | " + GRADINO_CLI + " techniques");
  const Lines want = wanted("techniques.en.jsonl.xz");
  ASSERT_EQ(got.size(), want.size());
  for (std::size_t i = 0; i < want.size(); ++i) {
    ASSERT_EQ(got[i].size(), want[i].size());
    for (const auto& [name, action] : got[i].items())
      expectsame(action, want[i][name], "board " + std::to_string(i + 1) + ", " + name);
  }
}

}  // namespace
