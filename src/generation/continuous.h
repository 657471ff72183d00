// The continuous generator: fills the library for hours.
#pragma once

namespace gradino::frmmain {

/// Makes puzzle after puzzle and adds those that are hard or sparse enough to the library, until its time is
/// up: 25000 seconds, looked at after an accepted puzzle. Throws LibraryFailure when the store fails, Fault
/// when the running number leaves its 16 bits, BoardLost when a command clears the board meanwhile. All that
/// the list in frmgeneratore has shown is stored by then, but for the one puzzle at which the store failed.
void genera_e_conta();

}  // namespace gradino::frmmain
