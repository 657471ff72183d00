// What the help picture does: argues the waiting step.
#pragma once

namespace gradino {

/// Places the explanation window beside the main window and runs the explanation that steptag names, with a
/// wait of its own. A step without an explanation (the last digit of a house) leaves the window as it is.
void Picthelp_Click();

}  // namespace gradino
