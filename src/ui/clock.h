// The solving clock: started and paused by picstart, reset by Picture2, and stopped when the board is full.
// Loading a puzzle doesn't affect it.
#pragma once

namespace gradino {

/// Timer2: while on, ui/qt calls Timer2_Timer every 1000 ms.
inline constinit bool timer2on = false;

void picstart_Click();
void Picture2_Click();
void Timer2_Timer();

void freshclock();

}  // namespace gradino
