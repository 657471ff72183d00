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

/// Sets lightresult to 0, waits, and tells whether the answer was stop.
bool stopped();

/// True while a wait is open: the commands and clicks that could disturb a step then refuse.
bool waiting();

void Pictgo_Click();
void Pictalt_Click();

}  // namespace gradino
