// The continuous generator: fills the library for hours.
#pragma once

namespace gradino::frmmain {

/// Makes puzzle after puzzle and adds those that are hard or sparse enough to the library, for 25000 seconds;
/// the time is checked when a puzzle has been accepted. Throws LibraryFailure when the store fails, Fault
/// when the running number leaves its 16 bits, BoardLost when a command clears the board meanwhile. By then
/// all puzzles in the list of frmgeneratore are stored, except the one at which the store failed.
void genera_e_conta();

}  // namespace gradino::frmmain
