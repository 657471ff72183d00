// Nishio, level 21: the last rung.
#pragma once

namespace gradino {

namespace frmmain {
/// The ladder sets the tag "impossible" before it calls.
void stepnishio();
}  // namespace frmmain
namespace frmgenerazione {
void gradenishio();
}
void explainnishio();

}  // namespace gradino
