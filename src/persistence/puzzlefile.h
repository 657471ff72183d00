// Puzzle files: one puzzle between the 81 digit boxes and a text file. A file holds the 81 cells and nothing
// else: what the boxes show when it is saved are the givens when it is opened again.
//
//   .sav .txt .sdk   81 symbols in one line, "." for an empty cell         read and written
//   .lgc             a drawing of 13 lines, 81 dots in it for the cells    read and written
//   .sas             81 numbers, a comma after each                         read only
//
// Only two readers exist: the comma reader for names that end in "sas", and for all others a scanner that
// takes the symbols it knows and skips the rest. Line ends are CR LF; a lone LF is read too.
#pragma once

#include <fstream>
#include <istream>
#include <string>
#include <string_view>

namespace gradino {

inline constexpr std::string_view openfilter =
    "Puzzle salvati (*.sav)|*.sav|File di testo (*.txt)|*.txt|schemi (*.sas)|*.sas|sudokusol (*.sdk;*.txt)|"
    "*.sdk;*.txt|Tutti i formati (*.sav;*.sdk;*.txt;*.lgc)|*.sav;*.sdk;*.txt;*.lgc";
inline constexpr std::string_view savefilter =
    "Puzzle salvati (*.sav)|*.sav|File di testo (*.txt)|*.txt|sudokusol (*.sdk)|*.sdk|logicando (*.lgc)|*.lgc";

/// Opens a puzzle file for reading. Fault: there is no such file.
std::ifstream openpuzzlefile(const std::string& name);

/// Takes the symbols of one line, from cell `pos` on, into givens, cellvalue and the boxes: 1 to 9 a given,
/// one of . 0 x X an empty cell, any other character is skipped. Returns the next cell; at 81 it stops.
/// Fault: a line of 255 or more characters, unless the 81st symbol ends the reading first (256 and more fail
/// before the first character).
int scanline(std::string_view line, int pos);

/// Reads the whole puzzle through the scanner. Fault: a line too long; the text ends before the 81st symbol,
/// and the cells read so far stay.
void scanfile(std::istream& file);

/// The comma reader: 81 numbers from 0 to 255 from the first line into the boxes, as text, 0 for an empty
/// cell too. Nothing else of the board changes. Fault: fewer than 81 commas, a field that is no number or
/// above 255, a comma beyond character 255; the boxes read so far stay.
void readcommas(std::istream& file);

/// What saving writes for the current boxes, without the last line break: 81 symbols or the drawing.
std::string puzzleline();
std::string puzzledrawing();

/// Writes the boxes to the file, in the format of its name. Fault: it can't be written.
void writepuzzle(const std::string& name);

}  // namespace gradino
