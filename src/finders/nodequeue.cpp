#include "nodequeue.h"

#include <array>

#include "host.h"
#include "houses.h"

namespace gradino {
namespace {

constexpr const char* shorterchain = "catena più corta";
constexpr int tolerance = 5;  ///< characters

int count = 0;

/// The first node of each cell, digit and truth, where its stamp is that of the present queue.
struct First {
  int stamp = 0, node = 0;
};
ByCell<ByDigit<std::array<First, 2>>> firsts;
int queuestamp = 0;

First& firstof(int cell, int digit, bool flag) {
  return firsts[cell][digit][flag ? 1 : 0];
}

bool sameas(int node, int cell, int digit, bool flag) {
  return chaincell(node) == cell && chaindigit(node) == digit && chainflag(node) == flag;
}

bool refused(int cell, int digit, bool flag, int parent) {
  const First& first = firstof(cell, digit, flag);
  if (first.stamp != queuestamp) return false;
  for (int node = first.node; node < count; ++node) {
    if (!sameas(node, cell, digit, flag)) continue;
    if (chainpath(node) < chainpath(parent) + tolerance) return true;
    host.message(shorterchain);
  }
  return false;
}

void append(int cell, int digit, bool flag, int parent, int path) {
  chaincell(count) = cell;
  chaindigit(count) = digit;
  chainflag(count) = flag;
  chainparent(count) = parent;
  chainpath(count) = path;
  if (First& first = firstof(cell, digit, flag); first.stamp != queuestamp) first = {queuestamp, count};
  ++count;
}

}  // namespace

void clearlinks() {
  linkcell.clear();
  linkdigit.clear();
  linkflag.clear();
}

void clearqueue() {
  count = 0;
  ++queuestamp;
}

int nodecount() {
  return count;
}

int depthof(int node) {
  int depth = 0;
  for (; node != 0; node = chainparent(node)) ++depth;
  return depth;
}

int tokenlength(int node) {
  return node < 100 ? 3 : 4;
}

Added addnode(int cell, int digit, bool flag, int parent, int path) {
  if (refused(cell, digit, flag, parent)) return Added::refused;
  if (count > decltype(chaincell)::high) return Added::full;
  append(cell, digit, flag, parent, path);
  return Added::yes;
}

void addfirst(int cell, int digit, bool flag, int parent, int path) {
  append(cell, digit, flag, parent, path);
}

void addhypothesis(int cell, int digit, int path) {
  append(cell, digit, true, 0, path);
}

}  // namespace gradino
