// A row of the library: texts, in the order of the table's fields.
#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace gradino {

inline constexpr std::array<const char*, 29> libraryfields = {
    "progressivo", "stringa", "dettaglio", "livello", "numeri", "difficolta", "supersimmetrico",
    "tempo",       "f1",      "f2",        "f3",      "f4",     "f5",         "f6",
    "f7",          "f8",      "f9",        "f10",     "f11",    "f12",        "f13",
    "f14",         "f15",     "f16",       "f17",     "f18",    "f19",        "f20",
    "f21"};

/// The positions of the fields that are used by name.
namespace field {
inline constexpr std::size_t progressivo = 0, stringa = 1, dettaglio = 2, livello = 3, numeri = 4,
                             difficolta = 5, supersimmetrico = 6, tempo = 7, f1 = 8;
}

/// One puzzle: UTF-8 texts, empty for a null value.
using LibraryRow = std::array<std::string, libraryfields.size()>;

/// True when the text is a puzzle: at least 81 characters, the first 81 of them digits or ".".
bool ispuzzle(const std::string& stringa);

}  // namespace gradino
