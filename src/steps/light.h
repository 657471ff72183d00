// The traffic light: how a step waits for its user.
#pragma once

#include <string>

#include "checked.h"

namespace gradino {

/// 0 while waiting, 1 go, 2 stop. One for all waits: an explanation's answer also answers its step.
inline constinit Byte lightresult{"lightresult"};

/// Shows the three pictures, lets events run until lightresult is 1 or 2, hides them. The caller has set
/// lightresult to 0. Waits nest: the inner one's answer ends the outer ones too.
void aspetta();

/// Grows when the board is cleared.
inline constinit int boardnumber = 0;

/// True while an explanation waits for its answer.
inline constinit bool explaining = false;

/// To be called when the board is cleared: the wait of a step that was on it ends, and the window of an
/// explanation that still waits closes.
void loseboard();

/// Thrown by a routine whose board was cleared while it let events run (the menu has no lock): it must not
/// touch the new one. The guard around each event ends it without a word.
struct BoardLost {};

/// Lets the waiting events run in the middle of a long job. Throws BoardLost when they cleared the board.
void letevents();

enum class Answer { go, stop };

/// One wait of a step: sets lightresult to 0, waits (aspetta), gives the answer. Events run meanwhile, so any
/// command may have come in. Whatever it found, foundflag gets back the value that it had before the wait:
/// the ladder reads from it what the step that waited has found. Throws BoardLost when the board was cleared.
Answer waitatlight();

/// True while a wait is open: the commands and clicks that could disturb a step then refuse.
bool waiting();

void Pictgo_Click();
void Pictalt_Click();

}  // namespace gradino
