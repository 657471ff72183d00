#include "chains.h"

#include <sstream>

#include "conjugatechains.h"
#include "grid.h"
#include "houses.h"
#include "nodequeue.h"
#include "step.h"

namespace gradino::tests {
namespace {

std::string linkread(int cell, int digit, bool flag) {
  return std::string(cellname(cell)) + (flag ? "=" : "<>") + std::to_string(digit);
}

}  // namespace

// ---- the searches -----------------------------------------------------------------------------------------

std::string loopfound() {
  scanchain(ChainRules::loops);
  return linksread();
}

std::string xychainfound() {
  scanchain(ChainRules::xychains);
  return linksread();
}

std::string linksread() {
  if (chainlength >= nochain) return "";
  std::string text;
  for (int k = 0; k <= chainlength; ++k)
    text += (k == 0 ? "" : " ") + linkread(linkcell(k), linkdigit(k), linkflag(k));
  return text;
}

// ---- the search once more ---------------------------------------------------------------------------------

namespace {

class Literal {
 public:
  Literal(bool xychains, LiteralSearch& told) : xy_(xychains), told_(told) {}

  void scan() {
    for (int digit = 1; digit <= 9; ++digit) {
      for (int row = 0; row < 9; ++row)
        house(digit, rowpos(digit, row).text(), [&](int p) { return row * 9 + p; });
      for (int block = 0; block < 9; ++block)
        house(digit, blockpos(digit, block).text(), [&](int p) { return int{blockcells(block, p)}; });
      for (int col = 0; col < 9; ++col)
        house(digit, colpos(digit, col).text(), [&](int p) { return p * 9 + col; });
    }
    for (const Node& link : best_)
      told_.chain += (told_.chain.empty() ? "" : " ") + linkread(link.cell, link.digit, link.flag);
  }

 private:
  struct Node {
    int cell, digit;
    bool flag;
    std::string path;
  };
  struct Full {};

  template <class Cell>
  void house(int digit, const std::string& places, const Cell& cellat) {
    if (places.size() != 2) return;
    const int c1 = cellat(places[0] - '0'), c2 = cellat(places[1] - '0');
    if (linkpair_[c1][c2]) return;
    run(digit, c1, c2);
    linkpair_[c1][c2] = linkpair_[c2][c1] = true;
  }

  void run(int digit, int c1, int c2) {
    if (xy_ && (candstr(c1).size() != 2 || candstr(c2).size() != 2)) return;
    if (candstr(c1).size() >= 4 || candstr(c2).size() >= 4) return;
    const bool c1holdsit = solutiontext(c1) == std::to_string(digit);
    int startcell = c1holdsit ? c2 : c1;
    const int other = c1holdsit ? c1 : c2;
    if (xy_ || !nishioflag) return hypothesis(startcell, digit);
    std::string first, second;
    for (char c : candstr(startcell))
      if (std::string(1, c) != solutiontext(startcell)) first += c;
    for (char c : candstr(other))
      if (c - '0' != digit) second += c;
    for (char c : first + second) {
      if (first.find(c) == std::string::npos) startcell = other;
      hypothesis(startcell, c - '0');
    }
  }

  void hypothesis(int s, int e) {
    if (linkseen_[s][e]) return;
    linkseen_[s][e] = true;
    nodes_ = {{s, e, true, ""}};
    try {
      std::size_t i = 0;
      for (; i < nodes_.size() && nodes_.size() <= 250; ++i) expand(i, s, e);
      if (i < nodes_.size()) ++told_.longwalks;
    } catch (const Full&) {
      ++told_.fullqueues;
    }
  }

  void expand(std::size_t i, int s, int e) {
    const Node node = nodes_[i];
    const auto [c, x, t, p] = node;
    const std::string token = (i < 10 ? "0" : "") + std::to_string(i);
    if (!(static_cast<double>(p.size()) / 3 < limit_)) return;
    const std::string path = p + token + ",";
    const auto add = [&](int cell, int digit, bool flag) {
      append({cell, digit, flag, path}, node.path.size());
    };
    const auto other = [](int cell, int digit) {
      return candstr(cell)[0] == '0' + digit ? candstr(cell)[1] - '0' : candstr(cell)[0] - '0';
    };
    const std::string own = candstr(c);
    if (t) {
      for (char y : own)
        if (y != '0' + x) add(c, y - '0', false);
    } else if (own.size() == 2) {
      add(c, other(c, x), true);
    }
    for (const std::vector<int>& places : housesof(c, x)) {
      if (places.size() < 2) continue;
      for (int q : places) {
        if (q == c || (xy_ && candstr(q).size() != 2)) continue;
        if (t) {
          if (q == s && x == e) closed(path);
          add(q, x, false);
          if (candstr(q).size() == 2) add(q, other(q, x), true);
        } else if (places.size() == 2) {
          add(q, x, true);
        }
      }
    }
  }

  /// The places of a digit in the row, the column and the block of a cell.
  static std::vector<std::vector<int>> housesof(int c, int x) {
    std::vector<std::vector<int>> all(3);
    for (char p : rowpos(x, c / 9).text()) all[0].push_back(c / 9 * 9 + (p - '0'));
    for (char p : colpos(x, c % 9).text()) all[1].push_back((p - '0') * 9 + c % 9);
    const int block = c / 27 * 3 + c % 9 / 3;
    for (char p : blockpos(x, block).text()) all[2].push_back(blockcells(block, p - '0'));
    return all;
  }

  void append(const Node& node, std::size_t currentpath) {
    for (const Node& old : nodes_) {
      if (old.cell != node.cell || old.digit != node.digit || old.flag != node.flag) continue;
      if (old.path.size() < currentpath + 5) return;
      told_.boxes.emplace_back("catena più corta");
    }
    if (nodes_.size() > 260) throw Full{};
    nodes_.push_back(node);
  }

  void closed(const std::string& path) {
    std::vector<Node> links;
    std::istringstream tokens(path);
    for (std::string token; std::getline(tokens, token, ',');) links.push_back(nodes_[std::stoul(token)]);
    const double length = static_cast<double>(links.size()) - 1;
    if (length >= limit_) return;
    limit_ = length;
    best_ = links;
  }

  const bool xy_;
  LiteralSearch& told_;
  double limit_ = 20;
  std::vector<Node> nodes_, best_;
  bool linkpair_[81][81] = {}, linkseen_[82][10] = {};
};

}  // namespace

LiteralSearch::LiteralSearch(bool xychains) {
  Literal(xychains, *this).scan();
}

}  // namespace gradino::tests
