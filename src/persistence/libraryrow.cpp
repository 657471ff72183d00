#include "libraryrow.h"

#include <algorithm>

#include "tables.h"

namespace gradino {

bool ispuzzle(const std::string& stringa) {
  return stringa.size() >= cellcount && std::all_of(stringa.begin(), stringa.begin() + cellcount, [](char c) {
           return c == '.' || (c >= '1' && c <= '9');
         });
}

}  // namespace gradino
