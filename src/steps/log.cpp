#include "log.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <span>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "boxes.h"
#include "step.h"
#include "tables.h"
#include "words.h"

namespace gradino {
namespace {

constexpr Words logcaption = {"Log - DOPPIO CLICK su una linea per il dettaglio dell'evento",
                              "Log - DOUBLE CLICK on one line to explain the technique "};

int emptied = 0;                                  ///< how often the text was emptied
Table<int, 0, 650> snapshottext{"snapshottext"};  ///< `emptied` when the snapshot was taken

}  // namespace

void loadlogwindow() {
  if (Frmlog::caption.empty()) Frmlog::caption = inlanguage(logcaption);
}

void appendline(std::string_view line) {
  loadlogwindow();
  Frmlog::Text3.text.append(newline).append(line);
}

void appendwords(std::string_view words) {
  Frmlog::Text3.text.append(words);
}

void counthead() {
  if (!comandocorrente.empty()) return;
  logcount += 1;
  logsnapshot();
}

void headline(std::string_view line) {
  appendline(line);
  counthead();
}

void detail(std::string_view line) {
  appendline(line);
  logcount += 1;
}

namespace {

/// A mask as the snapshot has it, "1022,", with its length in the last byte. All eight bytes are copied at
/// once, whatever the length; the next number is then written right after the comma.
using MaskText = std::array<char, 8>;

/// By mask. A puzzle's grade writes some four thousand of them.
const auto masktexts = [] {
  std::array<MaskText, fullmask + 2> texts{};
  for (std::size_t mask = 0; mask < texts.size(); ++mask) {
    MaskText& text = texts[mask];
    *fmt::format_to(text.data(), "{},", mask) = '\0';
    text.back() = static_cast<char>(std::strlen(text.data()));
  }
  return texts;
}();

using Numbers = std::span<const std::int32_t, cellcount>;

// The fast loops below are right for digits and masks only. Whether a table held any other number is asked
// once, after the loop; such a table is then written again by the formatter.

/// Sixteen cells at a time in plain vectors of the compiler, then the last cell.
void writevalues(std::string& text, Numbers values) {
  using Sixteen [[gnu::vector_size(64)]] = std::uint32_t;
  using Halves [[gnu::vector_size(32)]] = std::uint16_t;
  using Figures [[gnu::vector_size(16)]] = char;
  constexpr std::size_t step = 16;
  std::array<char, cellcount> figures;
  Sixteen bits{};
  for (std::size_t cell = 0; cell + step <= cellcount; cell += step) {
    Sixteen some;
    std::memcpy(&some, &values[cell], sizeof some);
    bits |= some | (some + 6);  // from 10 on, that is 16 or more
    const Figures written = __builtin_convertvector(__builtin_convertvector(some, Halves), Figures) + '0';
    std::memcpy(&figures[cell], &written, sizeof written);
  }
  const auto last = static_cast<std::uint32_t>(values.back());
  figures.back() = static_cast<char>('0' + last);
  text.assign(figures.begin(), figures.end());
  std::uint32_t all = last | (last + 6);
  for (std::size_t k = 0; k < step; ++k) all |= bits[k];
  if (all >= 16) text = fmt::format("{}", fmt::join(values, ""));
}

void writemasks(std::string& text, Numbers masks) {
  std::array<char, (cellcount + 1) * sizeof(MaskText)> buffer;
  char* end = buffer.data();
  std::int32_t all = 0;
  for (const std::int32_t mask : masks) {
    all |= mask;
    const MaskText& number = masktexts[static_cast<std::uint32_t>(mask) % masktexts.size()];
    std::memcpy(end, number.data(), sizeof number);
    end += number.back();
  }
  text.assign(buffer.data(), end);
  if (static_cast<std::uint32_t>(all) >= masktexts.size()) text = fmt::format("{},", fmt::join(masks, ","));
}

}  // namespace

void logsnapshot() {
  writevalues(logvalues(logcount), Numbers(cellvalue.begin(), cellcount));
  writemasks(logcands(logcount), Numbers(candmask.begin(), cellcount));
  logflags(logcount) = nishioflag;
  snapshottext(logcount) = emptied;
}

bool hassnapshot(int line) {
  return line <= decltype(logvalues)::high && !logvalues(line).empty() && snapshottext(line) == emptied;
}

void emptylogtext() {
  Frmlog::Text3.text.clear();
  ++emptied;
}

void freshlog() {
  logcount = 0;
  logvalues.clear();
  logcands.clear();
  logflags.clear();
  emptied = 0;
  snapshottext.clear();
}

void clearlog() {
  for (int line = 0; line <= 150; ++line) {
    logvalues(line).clear();
    logcands(line).clear();
  }
  logcount = 0;
  loadlogwindow();
  emptylogtext();
}

}  // namespace gradino
