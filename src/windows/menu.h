// The menu entries and toolbar keys as controls. Their tables, menu.def, toolbar1.def and toolbar2.def, say
// all about them; here they are declared.
#pragma once

#include "boxes.h"

namespace gradino::frmmain {

#define TITLE(control, ...) inline Control control;
#define ENTRY(control, ...) inline Control control;
#include "menu.def"

namespace Toolbar1 {
#define KEY(control, ...) inline Control control;
#define GAP
#include "toolbar1.def"
}  // namespace Toolbar1

namespace Toolbar2 {
#define KEY(control, ...) inline Control control;
#define GAP
#include "toolbar2.def"
}  // namespace Toolbar2

}  // namespace gradino::frmmain
