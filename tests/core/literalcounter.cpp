#include "literalcounter.h"

#include <algorithm>
#include <bitset>

namespace gradino::tests {

void LiteralCounter::conta(const std::array<std::string, 81>& givens) {
  nodes_ = 0;
  boxes.clear();
  cimapila_ = 0;
  numerosoluzioni = 0;
  soluzioni.assign(2049, Record{});
  for (std::size_t cell = 0; cell <= 80; ++cell)
    cellvalue[cell] = givens[cell].empty() ? 0 : std::stoi(givens[cell]);
  int start = 0;
  contaricorsiva(start);
  if (numerosoluzioni == 1) {
    for (std::size_t cell = 0; cell <= 80; ++cell) solutiontext[cell] = stringhesoluzione[1].substr(cell, 1);
    return;
  }
  if (numerosoluzioni == 0) boxes.emplace_back("Invalid Puzzle");
  if (comandocorrente == "conta") boxes.push_back(std::to_string(numerosoluzioni) + " Solutions");
}

void LiteralCounter::contaricorsiva(int& cell) {
  if (++nodes_ > nodelimit) throw TooLong("a long search");
  if (cell > 80) return;
  rebuildusedmask();
  bool ok = false;
  vicolocieco(cell, ok);
  if (!ok) return;
  riempiunici(cell);
  while (cellvalue[cell] != 0 && cell < 80) ++cell;
  if (cellvalue[cell] != 0) {
    stringasoluzione_.clear();
    for (int c = 0; c <= 80; ++c) stringasoluzione_ += std::to_string(cellvalue[c]);
    registrasoluzione();
    if (numerosoluzioni > 500) comandocorrente = "";
    return;
  }
  const int snapshot = usedmask[cell];
  for (int d = 1; d <= 9; ++d) {
    if (snapshot & (1 << d)) continue;
    salvaschema();
    cellvalue[cell] = d;
    rebuildusedmask();
    riempiunici(cell);
    int next = cell + 1;
    contaricorsiva(next);
    if (comandocorrente != "conta" && numerosoluzioni > 1) return;
    ripristinaschema();
    rebuildusedmask();
  }
}

void LiteralCounter::riempiunici(int cell) {
  for (; cell <= 80; ++cell) {
    if (cellvalue[cell] != 0) continue;
    const auto test = [&](int mask, int digit) {
      if (usedmask[cell] != mask) return;
      cellvalue[cell] = digit;
      rebuildusedmask();
    };
    test(510, 9);
    test(766, 8);
    test(894, 7);
    test(958, 6);
    test(990, 5);
    test(1006, 4);
    test(1014, 3);
    test(1018, 2);
    test(1020, 1);
  }
}

void LiteralCounter::vicolocieco(int cell, bool& ok) {
  for (; cell <= 80; ++cell)
    if (cellvalue[cell] == 0 && usedmask[cell] == 1022) {
      ok = false;
      return;
    }
  ok = true;
}

void LiteralCounter::salvaschema() {
  ++cimapila_;
  pilaschema_.at(cimapila_) = cellvalue;
}

void LiteralCounter::ripristinaschema() {
  cellvalue = pilaschema_.at(cimapila_);
  --cimapila_;
}

void LiteralCounter::registrasoluzione() {
  ++numerosoluzioni;
  if (numerosoluzioni >= 501) {
    boxes.emplace_back("More than 500 solutions");
    return;
  }
  stringhesoluzione[numerosoluzioni] = stringasoluzione_;
  if (comandocorrente != "conta" && numerosoluzioni >= 2) return;
  soluzioni.at(numerosoluzioni) = cellvalue;
}

void LiteralCounter::rebuildusedmask() {
  usedmask.fill(0);
  for (int cell = 0; cell <= 80; ++cell) {
    const int bit = cellvalue[cell] == 0 ? 0 : 1 << cellvalue[cell];
    usedmask[81 + cell / 9] |= bit;
    usedmask[90 + cell % 9] |= bit;
    usedmask[99 + cell / 27 * 3 + cell % 9 / 3] |= bit;
  }
  for (int cell = 0; cell <= 80; ++cell)
    usedmask[cell] =
        usedmask[81 + cell / 9] | usedmask[90 + cell % 9] | usedmask[99 + cell / 27 * 3 + cell % 9 / 3];
}

namespace {

using Columns = std::bitset<324>;

/// Which of the 324 demands a digit in a cell meets.
Columns demands(int cell, int digit) {
  const int row = cell / 9, col = cell % 9, block = row / 3 * 3 + col / 3, d = digit - 1;
  Columns columns;
  columns.set(cell).set(81 + row * 9 + d).set(162 + col * 9 + d).set(243 + block * 9 + d);
  return columns;
}

int cover(const Columns& met, const std::vector<Columns>& rows, int limit) {
  if (met.all()) return 1;
  std::array<int, 324> supply{};
  for (const Columns& row : rows)
    for (std::size_t c = row._Find_first(); c < 324; c = row._Find_next(c)) ++supply[c];
  std::size_t scarce = 324;
  for (std::size_t c = 0; c < 324; ++c)
    if (!met[c] && (scarce == 324 || supply[c] < supply[scarce])) scarce = c;
  int count = 0;
  for (const Columns& row : rows) {
    if (!row[scarce]) continue;
    std::vector<Columns> left;
    for (const Columns& other : rows)
      if ((other & row).none()) left.push_back(other);
    count += cover(met | row, left, limit - count);
    if (count >= limit) break;
  }
  return count;
}

}  // namespace

int exactcovercount(const std::string& puzzle, int limit) {
  Columns met;
  for (int cell = 0; cell < 81; ++cell) {
    if (puzzle[cell] == '.') continue;
    const Columns row = demands(cell, puzzle[cell] - '0');
    if ((met & row).any()) return 0;
    met |= row;
  }
  std::vector<Columns> rows;
  for (int cell = 0; cell < 81; ++cell)
    for (int digit = 1; digit <= 9; ++digit)
      if (const Columns row = demands(cell, digit); (met & row).none()) rows.push_back(row);
  return cover(met, rows, limit);
}

}  // namespace gradino::tests
