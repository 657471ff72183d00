// The solving clock: started and paused by picstart, reset by Picture2, and by itself off when the board is
// full. No load of a puzzle touches it.
#pragma once

namespace gradino {

/// Timer2: while on, whoever shows windows calls Timer2_Timer every 1000 ms.
inline constinit bool timer2on = false;

void picstart_Click();
void Picture2_Click();
void Timer2_Timer();

void freshclock();

}  // namespace gradino
