#include "page.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

#include <cairo-pdf.h>
#include <cairo.h>

#include "levels.h"
#include "output.h"
#include "words.h"

namespace gradino::cli {
namespace {

constexpr Words numbered = {"Sudoku {number}", "Sudoku {number}"};
constexpr Words graded = {"livello {level}, {name} · difficoltà {difficulty}",
                          "level {level}, {name} · difficulty {difficulty}"};
constexpr Words ungraded = {"livello {level}, oltre le tecniche", "level {level}, beyond the techniques"};
constexpr Words severalsolutions = {"più di una soluzione", "more than one solution"};
constexpr Words nosolutionatall = {"nessuna soluzione", "no solution"};
constexpr Words fullboard = {"schema completo", "full board"};
constexpr Words solutionshead = {"Soluzioni", "Solutions"};
constexpr Words nosolution = {"non una soluzione", "not one solution"};

constexpr double margin = 42, gap = 26, foot = 24;
constexpr double captionsize = 11, smallsize = 9, headsize = 15;
constexpr double thick = 1.7, thin = 0.4, grey = 0.45;
constexpr int solutioncolumns = 3, solutionrows = 4;
constexpr const char* family = "Liberation Sans";

struct Rectangle {
  double x, y, width, height;
};

class Pages {
 public:
  explicit Pages(const PageOptions& options)
      : options_(options),
        surface_(cairo_pdf_surface_create_for_stream(append, &pdf_, options.width, options.height),
                 cairo_surface_destroy),
        cairo_(cairo_create(surface_.get()), cairo_destroy) {
    cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_TITLE, "Sudoku");
    cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_CREATOR, "Gradino");
  }

  /// Ends the page with its number at the foot.
  void endpage() {
    text(std::to_string(++page_), options_.width / 2, options_.height - foot, smallsize, 0.5, grey);
    cairo_show_page(cairo_.get());
  }

  /// The bytes of the PDF.
  const std::string& finish() {
    cairo_.reset();
    cairo_surface_finish(surface_.get());
    if (const cairo_status_t status = cairo_surface_status(surface_.get()); status != CAIRO_STATUS_SUCCESS)
      throw std::runtime_error(cairo_status_to_string(status));
    return pdf_;
  }

  /// align: the fraction of the width of the text that is left of x.
  void text(const std::string& words, double x, double baseline, double size, double align = 0,
            double ink = 0, bool bold = false) {
    const cairo_text_extents_t extents = extentsof(words, size, bold);
    cairo_set_source_rgb(cairo_.get(), ink, ink, ink);
    cairo_move_to(cairo_.get(), x - extents.x_advance * align, baseline);
    cairo_show_text(cairo_.get(), words.c_str());
  }

  /// The largest font size up to `size` at which the words are at most `most` wide.
  double fitting(const std::string& words, double size, double most) {
    const double width = extentsof(words, size, false).x_advance;
    return width <= most ? size : size * most / width;
  }

  void grid(const std::string& cells, double x, double y, double side, double ink) {
    const double step = side / 9;
    for (int i = 0; i < 9 * 9; ++i)
      if (const char c = cells[static_cast<std::size_t>(i)]; c != '.')
        text(std::string(1, c), x + (i % 9 + 0.5) * step, y + (i / 9 + 0.5) * step + 0.215 * step, 0.6 * step,
             0.5, ink);
    cairo_set_source_rgb(cairo_.get(), 0, 0, 0);
    const double weight = std::clamp(side / 220, 0.75, 1.3);
    for (const bool block : {false, true}) {
      cairo_set_line_width(cairo_.get(), weight * (block ? thick : thin));
      cairo_set_line_cap(cairo_.get(), CAIRO_LINE_CAP_SQUARE);
      for (int i = 0; i <= 9; ++i) {
        if ((i % 3 == 0) != block) continue;
        line(x + i * step, y, x + i * step, y + side);
        line(x, y + i * step, x + side, y + i * step);
      }
      cairo_stroke(cairo_.get());
    }
  }

 private:
  /// The width of the words; sets the font that is used from here on.
  cairo_text_extents_t extentsof(const std::string& words, double size, bool bold) {
    cairo_select_font_face(cairo_.get(), family, CAIRO_FONT_SLANT_NORMAL,
                           bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cairo_.get(), size);
    cairo_text_extents_t extents;
    cairo_text_extents(cairo_.get(), words.c_str(), &extents);
    return extents;
  }
  static cairo_status_t append(void* pdf, const unsigned char* bytes, unsigned int count) {
    static_cast<std::string*>(pdf)->append(reinterpret_cast<const char*>(bytes), count);
    return CAIRO_STATUS_SUCCESS;
  }
  void line(double x1, double y1, double x2, double y2) {
    cairo_move_to(cairo_.get(), x1, y1);
    cairo_line_to(cairo_.get(), x2, y2);
  }

  const PageOptions& options_;
  std::string pdf_;
  std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_;
  std::unique_ptr<cairo_t, decltype(&cairo_destroy)> cairo_;
  int page_ = 0;
};

/// The k-th of columns * rows areas of a page below `top`.
Rectangle field(const PageOptions& options, int k, int columns, int rows, double top) {
  const double width = (options.width - 2 * margin - (columns - 1) * gap) / columns;
  const double height = (options.height - top - margin - foot / 2 - (rows - 1) * gap) / rows;
  return {margin + k % columns * (width + gap), top + k / columns * (height + gap), width, height};
}

std::string caption(const Printed& puzzle) {
  if (puzzle.standing != Standing::single) return std::string(ingradesplace(puzzle.standing));
  const std::string name(inlanguage(levelof(puzzle.level).brief));
  if (puzzle.difficulty < 0) return say(ungraded, hole("level", puzzle.level));
  return say(graded, hole("level", puzzle.level), hole("name", std::string_view(name)),
             hole("difficulty", puzzle.difficulty));
}

void drawpuzzle(Pages& pages, const Printed& puzzle, std::size_t number, const Rectangle& place) {
  constexpr double head = captionsize + smallsize + 14;
  const double side = std::min(place.width, place.height - head);
  const double x = place.x + (place.width - side) / 2, y = place.y + (place.height - head - side) / 2;
  pages.text(say(numbered, hole("number", static_cast<int>(number))), x, y + captionsize, captionsize, 0, 0,
             true);
  const std::string words = caption(puzzle);
  pages.text(words, x, y + captionsize + smallsize + 4, pages.fitting(words, smallsize, side), 0, grey);
  pages.grid(puzzle.puzzle, x, y + head - 4, side, 0);
}

void drawpuzzles(Pages& pages, const std::vector<Printed>& puzzles, const PageOptions& options) {
  const int columns = options.perpage >= 4 ? 2 : 1, rows = options.perpage / columns;
  for (std::size_t i = 0; i < puzzles.size(); ++i) {
    const int place = static_cast<int>(i % static_cast<std::size_t>(options.perpage));
    drawpuzzle(pages, puzzles[i], i + 1, field(options, place, columns, rows, margin));
    if (place + 1 == options.perpage || i + 1 == puzzles.size()) pages.endpage();
  }
}

void drawsolutions(Pages& pages, const std::vector<Printed>& puzzles, const PageOptions& options) {
  constexpr int all = solutioncolumns * solutionrows;
  constexpr double head = smallsize + 5;
  for (std::size_t i = 0; i < puzzles.size(); ++i) {
    const int k = static_cast<int>(i % all);
    if (k == 0)
      pages.text(std::string(inlanguage(solutionshead)), margin, margin + headsize, headsize, 0, 0, true);
    const Rectangle place = field(options, k, solutioncolumns, solutionrows, margin + headsize + 18);
    const double side = std::min(place.width, place.height - head);
    const bool known = !puzzles[i].solution.empty();
    std::string label = std::to_string(i + 1);
    pages.text(label, place.x, place.y + smallsize, smallsize, 0, 0, true);
    if (!known)
      pages.text(std::string(inlanguage(nosolution)), place.x + 24, place.y + smallsize, smallsize, 0, grey);
    pages.grid(known ? puzzles[i].solution : puzzles[i].puzzle, place.x, place.y + head, side, 0);
    if (k + 1 == all || i + 1 == puzzles.size()) pages.endpage();
  }
}

}  // namespace

std::string_view ingradesplace(Standing standing) {
  switch (standing) {
    case Standing::several:
      return inlanguage(severalsolutions);
    case Standing::none:
      return inlanguage(nosolutionatall);
    case Standing::full:
      return inlanguage(fullboard);
    case Standing::single:
      break;
  }
  return {};
}

void drawpages(const std::string& file, const std::vector<Printed>& puzzles, const PageOptions& options) {
  Pages pages(options);
  drawpuzzles(pages, puzzles, options);
  if (options.solutions) drawsolutions(pages, puzzles, options);
  replacefile(file, pages.finish());
}

}  // namespace gradino::cli
