#include "log.h"

#include <array>
#include <cstring>

#include <fmt/format.h>

#include "boxes.h"
#include "step.h"
#include "tables.h"
#include "words.h"

namespace gradino {
namespace {

constexpr Words logcaption = {"Log - DOPPIO CLICK su una linea per il dettaglio dell'evento",
                              "Log - DOUBLE CLICK on one line to explain the technique "};

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

/// A number of the snapshot as it is written, "1022,", with its length in the last byte: eight bytes that are
/// copied at once, whatever the length, and the next number begins behind it.
using MaskText = std::array<char, 8>;

/// Of all digit sets, by mask / 2. A puzzle's grade writes some four thousand of them.
const auto masktexts = [] {
  std::array<MaskText, 512> texts{};
  for (std::size_t set = 0; set < texts.size(); ++set)
    *fmt::format_to(texts[set].data(), "{},", set * 2) = '\0';
  for (MaskText& text : texts) text[7] = static_cast<char>(std::strlen(text.data()));
  return texts;
}();

bool isdigitset(std::int32_t mask) {
  return (mask & ~fullmask) == 0;
}

}  // namespace

void logsnapshot() {
  char values[cells * 12], masks[cells * 12 + sizeof(MaskText)];
  char* valuesend = values;
  char* end = masks;
  for (int cell = 0; cell < cells; ++cell) {
    if (const std::int32_t value = cellvalue(cell); 0 <= value && value <= 9)
      *valuesend++ = static_cast<char>('0' + value);
    else
      valuesend = fmt::format_to(valuesend, "{}", value);
    if (const std::int32_t mask = candmask(cell); isdigitset(mask)) {
      const MaskText& text = masktexts[static_cast<std::size_t>(mask >> 1)];
      std::memcpy(end, text.data(), sizeof text);
      end += text[7];
    } else {
      end = fmt::format_to(end, "{},", mask);
    }
  }
  logvalues(logcount).assign(values, valuesend);
  logcands(logcount).assign(masks, end);
  logflags(logcount) = nishioflag;
}

void clearlog() {
  for (int line = 0; line <= 150; ++line) {
    logvalues(line).clear();
    logcands(line).clear();
  }
  logcount = 0;
  loadlogwindow();
  Frmlog::Text3.text.clear();
}

}  // namespace gradino
