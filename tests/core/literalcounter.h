// A second solution counter, written as literally as possible: nothing is cut off, nothing is incremental. It
// has tables of its own and shares no code with the program's counter, which it checks.
#pragma once

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

namespace gradino::tests {

/// The search took longer than the caller wants to wait.
struct TooLong : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class LiteralCounter {
 public:
  using Record = std::array<int, 81>;

  void conta(const std::array<std::string, 81>& givens);

  long nodelimit = 20000;  ///< calls of the recursion before TooLong

  std::string comandocorrente;
  std::vector<std::string> boxes;  ///< shown by the last count

  // The results. As in the program, the strings of earlier counts stay.
  int numerosoluzioni = 0;
  std::array<int, 81> cellvalue{};
  std::array<int, 108> usedmask{};
  std::vector<Record> soluzioni;
  std::array<std::string, 501> stringhesoluzione;
  std::array<std::string, 81> solutiontext;

 private:
  void contaricorsiva(int& cell);
  void riempiunici(int cell);
  void vicolocieco(int cell, bool& ok);
  void salvaschema();
  void ripristinaschema();
  void registrasoluzione();
  void rebuildusedmask();

  long nodes_ = 0;
  int cimapila_ = 0;
  std::array<Record, 191> pilaschema_{};
  std::string stringasoluzione_;
};

/// Solutions of a puzzle of 81 characters, "." for empty, counted up to `limit` by exact cover: columns are
/// cells and digits of houses, rows are placements. Clashing givens have none.
int exactcovercount(const std::string& puzzle, int limit);

}  // namespace gradino::tests
