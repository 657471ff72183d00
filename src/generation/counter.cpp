// Depth-first search, cells in ascending order, digits in ascending order: this order decides which solution
// is the first and which two are found first, so it is never traded for the most constrained cell. What may
// be clever is only what says that a branch is dead: completable() (probe.h).
#include "counter.h"

#include <algorithm>
#include <bit>

#include "gradestate.h"
#include "host.h"
#include "probe.h"
#include "step.h"

namespace gradino {
namespace {

// The counter's own boxes are in English in both languages.
constexpr const char* invalid = "Invalid Puzzle";
constexpr const char* toomany = "More than 500 solutions";
constexpr const char* counted = " Solutions";

constexpr int limit = 500;

// The boards to come back to. Slot 0 stays empty; the recursion is at most 81 deep.
Table<GridRecord, 0, 190> pilaschema{"pilaschema"};
std::int32_t cimapila = 0;

std::string stringasoluzione;

void salvaschema() {
  cimapila += 1;
  std::copy_n(cellvalue.begin(), cells, pilaschema(cimapila).begin());
}

void ripristinaschema() {
  std::copy_n(pilaschema(cimapila).begin(), cells, cellvalue.begin());
  cimapila -= 1;
}

/// True when some empty cell from here on has no digit left. Filled cells are not looked at, so a clash among
/// them goes unnoticed.
bool vicolocieco(int cell) {
  for (; cell < cells; ++cell)
    if (cellvalue(cell) == 0 && usedmask(cell) == fullmask) return true;
  return false;
}

/// One pass from here to the end, never repeated: each empty cell with one digit left gets it. Cells behind
/// see it at once, cells before only at the next level of the search.
void riempiunici(int cell) {
  for (; cell < cells; ++cell) {
    if (cellvalue(cell) != 0) continue;
    const std::int32_t left = fullmask - usedmask(cell);
    if (!std::has_single_bit(static_cast<std::uint32_t>(left))) continue;
    cellvalue(cell) = std::countr_zero(static_cast<std::uint32_t>(left));
    rebuildusedmask();
  }
}

void registrasoluzione() {
  numerosoluzioni += 1;
  if (numerosoluzioni > limit) return host.message(toomany);
  stringhesoluzione(numerosoluzioni) = stringasoluzione;
  if (comandocorrente != countcommand && numerosoluzioni >= 2) return;
  const auto count = static_cast<std::size_t>(numerosoluzioni);
  if (count + 1 == soluzioni.size()) soluzioni.resize(count + 11);
  std::copy_n(cellvalue.begin(), cells, soluzioni[count].begin());
}

void contaricorsiva(int cell) {
  if (cell >= cells) return;
  rebuildusedmask();
  if (vicolocieco(cell)) return;
  riempiunici(cell);
  while (cellvalue(cell) != 0 && cell < cells - 1) ++cell;
  if (cellvalue(cell) != 0) {  // cell 80: the grid is complete
    stringasoluzione.clear();
    for (int c = 0; c < cells; ++c) stringasoluzione += std::to_string(cellvalue(c));
    registrasoluzione();
    if (numerosoluzioni > limit) comandocorrente.clear();  // which makes every level stop, below
    return;
  }
  if (!completable()) return;
  const std::int32_t used = usedmask(cell);
  for (int digit = 1; digit <= 9; ++digit) {
    if (used & bitvalue(digit)) continue;
    salvaschema();
    cellvalue(cell) = digit;
    rebuildusedmask();
    riempiunici(cell);
    contaricorsiva(cell + 1);
    if (comandocorrente != countcommand && numerosoluzioni > 1) return;  // board and stack as they are
    ripristinaschema();
    rebuildusedmask();
  }
}

}  // namespace

void conta() {
  cimapila = 0;
  numerosoluzioni = 0;
  soluzioni.assign(2049, GridRecord{});
  for (int cell = 0; cell < cells; ++cell)
    cellvalue(cell) = givens(cell).empty() ? 0 : leadingnumber(givens(cell));
  newprobe();
  contaricorsiva(0);
  if (numerosoluzioni == 1) {
    for (int cell = 0; cell < cells; ++cell)
      solutiontext(cell) = stringhesoluzione(1).at(static_cast<std::size_t>(cell));
    return;
  }
  if (numerosoluzioni == 0) host.message(invalid);
  if (comandocorrente == countcommand) host.message(std::to_string(numerosoluzioni) + counted);
}

void freshcounter() {
  stringhesoluzione.clear();
  soluzioni.clear();
  cimapila = 0;
  newprobe();
}

}  // namespace gradino
