// The language switch.
#pragma once

namespace gradino {

/// Switches between Italian and English: captions and tool tips of the main window. Text lines and the other
/// windows keep the language they were written in.
void cmdlan_Click();

}  // namespace gradino
