// What menu and toolbars say and do, one row a command, in the order of the screen, taken from the tables
// menu.def, toolbar1.def and toolbar2.def. A command that can't run says so in a message; none is ever
// greyed.
#pragma once

#include <span>

#include "boxes.h"
#include "words.h"

namespace gradino {

/// A menu title or entry.
struct MenuRow {
  Control* control;
  const char* name;  ///< by which scripts and tests find it
  bool title;        ///< opens a menu; the entries follow
  Words caption;
  void (*action)();
};

/// A toolbar key; without a control a separator.
struct KeyRow {
  Control* control = nullptr;
  const char* key = "";        ///< what the images are named by
  const char* caption = "";    ///< the same in both languages
  Words tip;                   ///< empty: another routine sets it
  Words name;                  ///< spoken; empty: the tip
  Words description;           ///< spoken too
  bool (*action)() = nullptr;  ///< false: it refused
};

std::span<const MenuRow> menurows();
std::span<const KeyRow> toolbar1rows();
std::span<const KeyRow> toolbar2rows();

/// The clicks. During a wait Toolbar1 refuses all keys but those that only change the view, and Toolbar2
/// refuses all; Toolbar2 turns the pencil marks on after each command that was not refused.
void Toolbar1_ButtonClick(const KeyRow& row);
void Toolbar2_ButtonClick(const KeyRow& row);

void mnurefresh_Click();
void mnuactivity_Click();
void mnunumber_Click();
void mnusolve_Click();

/// The key `conta`: counts the solutions of the givens and shows the number; the board doesn't change. False:
/// it is full.
bool countsolutions();

/// Writes the givens back into all digit boxes.
void showgivens();

/// The loose button for impossible candidates: BUG, then, if it found nothing, unique rectangles.
void cmdimpossibili_Click();

/// The hidden test button: XY-chains.
void Cmdtest_Click();

/// Prints the window on the default printer.
void mnuprint_Click();

/// A hidden button that was used to lay out the pencil marks: it makes boxes that exist already. The failure
/// is shown in a message, and the program ends.
void cmdnice_Click();

/// A double click on Frame1: shows or hides the hidden tools.
void Frame1_DblClick();

}  // namespace gradino
