#include "clock.h"

#include <cmath>
#include <cstdlib>

#include <fmt/format.h>

#include "boxes.h"
#include "host.h"
#include "tables.h"

namespace gradino {
namespace {

// Seconds since midnight, or counts of seconds.
double timerinizio = 0;  // the time at the last start or pause
double timeradesso = 0;  // the time at the last tick
double timerbase = 0;    // the seconds counted before the last start

constexpr int minute = 60, hour = 3600;

}  // namespace

// The lamp shows the state: red means that the clock is running.
void picstart_Click() {
  timerinizio = timeradesso = host.clock();
  if (frmmain::picstartlamp == Lamp::rosso) {
    frmmain::picstart.tip = "start timer ";
    timer2on = false;
    frmmain::picstartlamp = Lamp::verde;
  } else {
    frmmain::picstartlamp = Lamp::rosso;
    // Only the leading number of the box: after a pause at "1m 5s" the clock resumes from 1.
    timerbase = static_cast<double>(std::strtol(frmmain::tempotot.text.c_str(), nullptr, 10));
    frmmain::picstart.tip = "pause timer ";
    timer2on = true;
  }
}

void Picture2_Click() {
  frmmain::tempotot.text = "0";
  picstart_Click();
}

// Exactly 60 and exactly 3600 seconds keep the short form. At midnight the time of day, and with it the time
// shown, falls back to 0.
void Timer2_Timer() {
  timeradesso = host.clock();
  const int e = static_cast<int>(timerbase) + static_cast<int>(std::floor(timeradesso - timerinizio));
  frmmain::tempotot.text = fmt::format("{}s", e);
  if (e > minute && e < hour) frmmain::tempotot.text = fmt::format("{}m {}s", e / minute, e % minute);
  if (e > hour) {
    const int r = e % hour;
    frmmain::tempotot.text = fmt::format("{}h {}m {}s", e / hour, r / minute, r % minute);
  }
  if (filledcount == cellcount) timer2on = false;
}

void freshclock() {
  timer2on = false;
  timerinizio = timeradesso = timerbase = 0;
}

}  // namespace gradino
