// Nishio, level 21: the last rung.
#pragma once

namespace gradino {

namespace frmmain {
void stepnishio();
}
namespace frmgenerazione {
void gradenishio();
}
void explainnishio();

}  // namespace gradino
