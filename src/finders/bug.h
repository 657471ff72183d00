// BUG (bivalue universal grave), level 18.
#pragma once

namespace gradino {

namespace frmmain {
void stepbug();
}
namespace frmgenerazione {
void gradebug();
}
void explainbug();

}  // namespace gradino
