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
constexpr const char* family = "Liberation Sans";

struct Point {
  double x, y;
};

struct Rectangle {
  double x, y, width, height;
};

/// How words are printed.
struct Type {
  double size;
  double align = 0;  ///< the fraction of the width of the words that is left of their point
  double ink = 0;
  bool bold = false;
};

/// How many areas a page has.
struct Areas {
  int columns, rows;
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
    text(std::to_string(++page_), {options_.width / 2, options_.height - foot},
         {.size = smallsize, .align = 0.5, .ink = grey});
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

  /// The point is on the baseline.
  void text(const std::string& words, const Point& point, const Type& type) {
    const cairo_text_extents_t extents = extentsof(words, type.size, type.bold);
    cairo_set_source_rgb(cairo_.get(), type.ink, type.ink, type.ink);
    cairo_move_to(cairo_.get(), point.x - extents.x_advance * type.align, point.y);
    cairo_show_text(cairo_.get(), words.c_str());
  }

  /// The largest font size up to `wanted` at which the words are at most `room` wide.
  double fitting(const std::string& words, double wanted, double room) {
    const double width = extentsof(words, wanted, false).x_advance;
    return width <= room ? wanted : wanted * room / width;
  }

  void grid(const std::string& cells, const Point& corner, double side) {
    const auto [x, y] = corner;
    const double step = side / 9;
    for (int row = 0; row < 9; ++row)
      for (int column = 0; column < 9; ++column)
        if (const char c = cells[9 * static_cast<std::size_t>(row) + static_cast<std::size_t>(column)];
            c != '.')
          text(std::string(1, c), {x + (column + 0.5) * step, y + (row + 0.5) * step + 0.215 * step},
               {.size = 0.6 * step, .align = 0.5});
    cairo_set_source_rgb(cairo_.get(), 0, 0, 0);
    const double weight = std::clamp(side / 220, 0.75, 1.3);
    for (const bool block : {false, true}) {
      cairo_set_line_width(cairo_.get(), weight * (block ? thick : thin));
      cairo_set_line_cap(cairo_.get(), CAIRO_LINE_CAP_SQUARE);
      for (int i = 0; i <= 9; ++i) {
        if ((i % 3 == 0) != block) continue;
        line({x + i * step, y}, {x + i * step, y + side});
        line({x, y + i * step}, {x + side, y + i * step});
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
  void line(const Point& from, const Point& to) {
    cairo_move_to(cairo_.get(), from.x, from.y);
    cairo_line_to(cairo_.get(), to.x, to.y);
  }

  const PageOptions& options_;
  std::string pdf_;
  std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_;
  std::unique_ptr<cairo_t, decltype(&cairo_destroy)> cairo_;
  int page_ = 0;
};

/// The k-th of the areas of a page below `top`.
Rectangle field(const PageOptions& options, const Areas& areas, int k, double top) {
  const auto [columns, rows] = areas;
  const double width = (options.width - 2 * margin - (columns - 1) * gap) / columns;
  const double height = (options.height - top - margin - foot / 2 - (rows - 1) * gap) / rows;
  const int column = k % columns, row = k / columns;
  return {margin + column * (width + gap), top + row * (height + gap), width, height};
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
  pages.text(say(numbered, hole("number", static_cast<int>(number))), {x, y + captionsize},
             {.size = captionsize, .bold = true});
  const std::string words = caption(puzzle);
  pages.text(words, {x, y + captionsize + smallsize + 4},
             {.size = pages.fitting(words, smallsize, side), .ink = grey});
  pages.grid(puzzle.puzzle, {x, y + head - 4}, side);
}

void drawpuzzles(Pages& pages, const std::vector<Printed>& puzzles, const PageOptions& options) {
  const int columns = options.perpage >= 4 ? 2 : 1;
  const Areas areas = {columns, options.perpage / columns};
  for (std::size_t i = 0; i < puzzles.size(); ++i) {
    const int place = static_cast<int>(i % static_cast<std::size_t>(options.perpage));
    drawpuzzle(pages, puzzles[i], i + 1, field(options, areas, place, margin));
    if (place + 1 == options.perpage || i + 1 == puzzles.size()) pages.endpage();
  }
}

void drawsolutions(Pages& pages, const std::vector<Printed>& puzzles, const PageOptions& options) {
  constexpr Areas areas = {3, 4};
  constexpr int all = areas.columns * areas.rows;
  constexpr double head = smallsize + 5;
  for (std::size_t i = 0; i < puzzles.size(); ++i) {
    const int k = static_cast<int>(i % all);
    if (k == 0)
      pages.text(std::string(inlanguage(solutionshead)), {margin, margin + headsize},
                 {.size = headsize, .bold = true});
    const Rectangle place = field(options, areas, k, margin + headsize + 18);
    const double side = std::min(place.width, place.height - head);
    const bool known = !puzzles[i].solution.empty();
    pages.text(std::to_string(i + 1), {place.x, place.y + smallsize}, {.size = smallsize, .bold = true});
    if (!known)
      pages.text(std::string(inlanguage(nosolution)), {place.x + 24, place.y + smallsize},
                 {.size = smallsize, .ink = grey});
    pages.grid(known ? puzzles[i].solution : puzzles[i].puzzle, {place.x, place.y + head}, side);
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
